#include "tests/documents/corpus/layouts/Script.h"

#include "tests/documents/corpus/kit/QrBill.h"
#include "tests/documents/corpus/layouts/facts/Tale.h"

#include <QRegularExpression>
#include <functional>
#include <stdexcept>

namespace corpus {
namespace {

const QColor greyInk(80, 80, 80);

class Player {
  public:
    Player(Draft& draft, const Facts& facts)
        : draft_(draft), paper_(draft.paper), facts_(&facts),
          size_(draft.random.pick(std::vector<double>{8.5, 9, 9.5, 10})),
          dateForm_(draft.random.between(0, 6)), minus_(draft.random.between(0, 3)) {}

    void play(const QStringList& lines);
    void run(const QString& line);

  private:
    using Cells = QStringList;

    QString expanded(QString text);
    QString value(const QString& name);
    QString builtIn(const QString& name);
    QString dateText(QDate day) const;
    QString amountText(const QString& name, Cents cents, QChar how);
    Cells cells(const QString& text);

    void head(const QString& arguments);
    void plainHead(int arrangement, const QString& addressee);
    void pair(const QString& command, const Cells& c);
    void below(const Cells& c);
    void per(const QString& list, const QStringList& lines);
    void form(const Cells& c);
    void cell(const Cells& c);
    void setColumns(const QString& arguments);
    void row(Cells c, double size, bool bold);
    void each(const QString& arguments);
    void setMoney(const QString& style);
    void bill(const QString& arguments);
    bool layOut(const QString& command, const QString& rest);

    Draft& draft_;
    Paper& paper_;
    const Facts* facts_;
    const Facts* item_ = nullptr;
    bool repeating_ = false; ///< the same lines for one item after another
    double size_;
    int dateForm_;
    int minus_;
    std::map<QString, QString> chosen_; ///< an issuer keeps to its words
    std::vector<Column> columns_;
    int gridWidth_ = 2;
    int gridPlace_ = 0;
    double gridTop_ = 0;
    bool wide_ = false;
};

QString Player::dateText(QDate day) const {
    switch (dateForm_) {
    case 0:
        return day.toString("d.M.yyyy");
    case 1:
        return day.toString("dd.MM.yy");
    case 2:
    case 3:
        return draft_.longDate(day);
    default:
        return draft_.date(day);
    }
}

QString Player::amountText(const QString& name, Cents cents, QChar how) {
    if (name.startsWith('-')) {
        const QString digits = draft_.m(cents);
        return minus_ == 0 ? digits + "-" : minus_ == 1 ? "– " + digits : "-" + digits;
    }
    if (how == '?' && cents == 0) {
        return {};
    }
    return how == '!' ? draft_.s(cents) : how == '~' ? draft_.f(cents) : draft_.m(cents);
}

QString Player::builtIn(const QString& name) {
    const Family& family = draft_.family;
    if (name.startsWith('#')) {
        return draft_.random.digits(name.mid(1).toInt());
    }
    const std::map<QString, std::function<QString()>> known{
        {"year", [&] { return QString::number(draft_.year); }},
        {"next", [&] { return QString::number(draft_.year + 1); }},
        {"prev", [&] { return QString::number(draft_.year - 1); }},
        {"one", [&] { return family.one.name(); }},
        {"two", [&] { return family.two.name(); }},
        {"child", [&] { return family.child.name(); }},
        {"child2", [&] { return family.secondChild.name(); }},
        {"last", [&] { return family.one.last; }},
        {"birth", [&] { return dateText(family.one.birth); }},
        {"birth2", [&] { return dateText(family.two.birth); }},
        {"childbirth", [&] { return dateText(family.child.birth); }},
        {"ahv", [&] { return family.one.number; }},
        {"street", [&] { return family.street; }},
        {"home", [&] { return family.place; }},
        {"issuer", [&] { return draft_.issuer.name; }},
        {"town", [&] { return draft_.issuer.place.mid(5); }},
        {"phone", [&] { return draft_.issuer.phone; }},
        {"iban", [&] { return randomIban(draft_.random); }},
        {"someday", [&] { return dateText(draft_.day()); }},
        {"dated", [&] { return dateText(draft_.dated); }},
        {"start", [&] { return dateText(QDate(draft_.year, 1, 1)); }},
        {"end", [&] { return dateText(draft_.yearEnd()); }},
        {"something", [&] { return draft_.s(draft_.odd(15, 900)); }},
        {"early", [&] { return dateText(QDate(draft_.year + 1, 1, 20)); }}};
    const auto found = known.find(name);
    if (found == known.end()) {
        throw std::runtime_error("no fact " + name.toStdString());
    }
    return found->second();
}

QString Player::value(const QString& placeholder) {
    QString name = placeholder;
    QChar how;
    if (name.endsWith('!') || name.endsWith('~') || name.endsWith('?')) {
        how = name.back();
        name.chop(1);
    }
    const QString bare = name.startsWith('-') ? name.mid(1) : name;
    for (const Facts* facts : {item_, facts_}) {
        if (facts == nullptr) {
            continue;
        }
        if (const auto it = facts->amounts.find(bare); it != facts->amounts.end()) {
            return amountText(name, it->second, how);
        }
        if (const auto it = facts->texts.find(bare); it != facts->texts.end()) {
            return it->second;
        }
        if (const auto it = facts->dates.find(bare); it != facts->dates.end()) {
            return dateText(it->second);
        }
    }
    return builtIn(bare);
}

QString Player::expanded(QString text) {
    static const QRegularExpression choice("\\[([^\\[\\]]*)\\]");
    static const QRegularExpression key("@([a-z0-9]+)(?::(de|fr|it))?");
    static const QRegularExpression place("\\{([^{}]+)\\}");
    if (const QStringList languages = text.split("//"); languages.size() > 1) {
        const qsizetype at = draft_.language == "fr" ? 1 : draft_.language == "it" ? 2 : 0;
        text = languages[std::min(at, languages.size() - 1)].trimmed();
    }
    const auto replaceAll = [&text](const QRegularExpression& form, const auto& with) {
        for (auto match = form.match(text); match.hasMatch(); match = form.match(text)) {
            text.replace(match.capturedStart(), match.capturedLength(), with(match));
        }
    };
    replaceAll(choice, [this](const QRegularExpressionMatch& match) {
        const QStringList all = match.captured(1).split('|');
        QString& chosen = chosen_[match.captured(0)];
        if (chosen.isEmpty() || !repeating_) {
            chosen = all[draft_.random.between(0, static_cast<int>(all.size()) - 1)];
        }
        return chosen;
    });
    replaceAll(key, [this](const QRegularExpressionMatch& match) {
        const QString language = match.captured(2).isEmpty() ? draft_.language : match.captured(2);
        QString& chosen = chosen_[match.captured(1) + language];
        if (chosen.isEmpty()) {
            chosen = wording(draft_, match.captured(1), language);
        }
        return chosen;
    });
    replaceAll(place,
               [this](const QRegularExpressionMatch& match) { return value(match.captured(1)); });
    return text;
}

Player::Cells Player::cells(const QString& text) {
    Cells result;
    for (const QString& part : text.split(';')) {
        result += expanded(part.trimmed());
    }
    return result;
}

void Player::plainHead(int arrangement, const QString& addressee) {
    const Issuer& from = draft_.issuer;
    const QString address = addressee + ", " + draft_.family.street + ", " + draft_.family.place;
    if (arrangement == 4) {
        paper_.put(paper_.right, 16, from.name, {15, true, Align::right});
        paper_.put(paper_.right, 21, from.street + " · " + from.place + " · " + from.phone,
                   {7.5, false, Align::right, false, greyInk});
        paper_.line(paper_.left, 24, paper_.right, 24, 0.6);
        paper_.put(paper_.left, 32, address, {9});
        paper_.y = 38;
        return;
    }
    if (arrangement == 5) {
        paper_.put(paper_.left, 15, from.name + " | " + from.street + " | " + from.place,
                   {7, false, Align::left, false, greyInk});
        double line = 34;
        for (const QString& text : {addressee, draft_.family.street, draft_.family.place}) {
            paper_.put(paper_.left, line, text, {10});
            line += 4.8;
        }
        const QDate early = QDate(draft_.year + 1, 1, 1).addDays(draft_.random.between(4, 60));
        paper_.put(paper_.right, 56,
                   from.place.mid(5) + ", "
                       + dateText(draft_.dated.isValid() ? draft_.dated : early),
                   {9, false, Align::right});
        paper_.y = 62;
        return;
    }
    paper_.box(paper_.left, 12, 168, 22, 0.3);
    paper_.line(106, 12, 106, 34, 0.3);
    paper_.put(paper_.left + 3, 19, from.name, paper_.fitted(from.name, {11, true}, 78));
    paper_.put(paper_.left + 3, 25, from.street, {8});
    paper_.put(paper_.left + 3, 30, from.place, {8});
    paper_.put(109, 19, addressee, paper_.fitted(addressee, {10}, 78));
    paper_.put(109, 25, draft_.family.street, {8});
    paper_.put(109, 30, draft_.family.place, {8});
    paper_.y = 40;
}

void Player::head(const QString& arguments) {
    paper_.newPage(wide_);
    paper_.right += wide_ ? 87 : 0;
    const QString whom = arguments.section(' ', 1);
    const Family& family = draft_.family;
    const QString both = family.one.name() + draft_.t(" und ", " et ", " e ") + family.two.name();
    const QString addressee = whom == "two"    ? family.two.name()
                              : whom == "both" ? both
                                               : family.one.name();
    const int arrangement = arguments.section(' ', 0, 0).toInt();
    if (arrangement < 4) {
        draft_.letterHead(arrangement, addressee);
    } else {
        plainHead(arrangement, addressee);
    }
}

void Player::pair(const QString& command, const Cells& c) {
    const bool strong = command == "sum" || command == "leftsum";
    const Type type{size_ + (strong ? 0.5 : 0), strong};
    paper_.space(0.8);
    if (command == "left" || command == "leftsum") {
        paper_.row(c, {{54, Align::right}, {60}}, type);
    } else if (command == "above") {
        paper_.lineOf(c[0], {7.5, false, Align::left, false, greyInk});
        paper_.lineOf(c[1], {size_ + 2, true});
        paper_.space(1.5);
    } else if (command == "colon") {
        paper_.lineOf(c[0] + ": " + c[1], type);
    } else if (command == "mid") {
        paper_.row(c, {{paper_.left}, {128}}, paper_.fitted(c[0], type, 103));
    } else if (command == "band") {
        paper_.fill(paper_.left, paper_.y, 168, 7.6, QColor(232, 236, 228));
        paper_.put(paper_.left + 2, paper_.y + 5.3, c[0], type);
        paper_.put(paper_.right - 2, paper_.y + 5.3, c[1], {size_, true, Align::right});
        paper_.y += 8.4;
    } else if (command == "side") {
        const std::vector<Column> columns{{22}, {100, Align::right}, {110}, {190, Align::right}};
        columns_ = columns;
        row(c, size_ - 0.5, false);
    } else {
        paper_.entry(c[0], c[1], paper_.fitted(c[0], type, 164 - paper_.width(c[1], type)),
                     command == "dots");
    }
}

void Player::below(const Cells& c) {
    const double width = 168.0 / static_cast<double>(c.size() / 2);
    paper_.space(9);
    for (qsizetype i = 0; i + 1 < c.size(); i += 2) {
        const double x = paper_.left + width * static_cast<double>(i / 2);
        paper_.put(x, paper_.y, c[i], paper_.fitted(c[i], {size_ + 1.5, true}, width - 3));
        paper_.put(x, paper_.y + 4.4, c[i + 1], paper_.fitted(c[i + 1], {7.5}, width - 3));
    }
    paper_.space(7);
}

void Player::form(const Cells& c) {
    paper_.box(paper_.left, paper_.y, 168, 8.4, 0.15);
    paper_.line(152, paper_.y, 152, paper_.y + 8.4, 0.15);
    paper_.put(paper_.left + 2, paper_.y + 5.6, c[0], {8, true});
    paper_.put(paper_.left + 12, paper_.y + 5.6, c[1], paper_.fitted(c[1], {8}, 115));
    paper_.put(188, paper_.y + 5.6, c[2], paper_.fitted(c[2], {9.5, false, Align::right}, 34));
    paper_.y += 8.4;
}

void Player::cell(const Cells& c) {
    const double width = 168.0 / gridWidth_;
    const double x = paper_.left + width * (gridPlace_ % gridWidth_);
    const double y = gridTop_ + 14.0 * (gridPlace_ / gridWidth_);
    paper_.box(x, y, width, 14, 0.15);
    paper_.put(x + 2, y + 4.6, c[0], paper_.fitted(c[0], {7}, width - 4));
    paper_.put(x + 2, y + 11, c[1], paper_.fitted(c[1], {size_ + 0.5, true}, width - 4));
    ++gridPlace_;
    paper_.y = gridTop_ + 14.0 * ((gridPlace_ + gridWidth_ - 1) / gridWidth_);
}

void Player::setColumns(const QString& arguments) {
    columns_.clear();
    for (QString text : arguments.split(' ', Qt::SkipEmptyParts)) {
        const bool right = text.endsWith('r');
        text.remove('r');
        columns_.push_back({text.toDouble(), right ? Align::right : Align::left});
    }
}

/// Cells that would run into each other are set smaller.
void Player::row(Cells c, double size, bool bold) {
    paper_.y += size * 0.48;
    double edge = 0; // where the cell before ends
    for (qsizetype i = 0; i < c.size(); ++i) {
        const Column& column = columns_.at(static_cast<size_t>(i));
        const Type type{size, bold, column.align};
        double limit = 0;
        if (column.align == Align::right) {
            limit = i > 0 ? column.x - edge - 1.5 : column.x;
        } else {
            limit = paper_.right + 5 - column.x;
            for (qsizetype next = i + 1; next < c.size(); ++next) {
                if (!c[next].isEmpty()) {
                    const Column& other = columns_.at(static_cast<size_t>(next));
                    const double span = other.x - column.x - 1.5;
                    limit = other.align == Align::left
                                ? span
                                : std::max(span - paper_.width(c[next], type), span * 0.45);
                    break;
                }
            }
        }
        const Type set = paper_.fitted(c[i], type, limit);
        paper_.put(column.x, paper_.y, c[i], set);
        if (!c[i].isEmpty()) {
            edge = column.align == Align::right ? column.x : column.x + paper_.width(c[i], set);
        }
    }
}

void Player::each(const QString& arguments) {
    const QString list = arguments.section(' ', 0, 0);
    const QString rest = arguments.section(' ', 1);
    const auto found = facts_->lists.find(list);
    if (found == facts_->lists.end()) {
        throw std::runtime_error("no list " + list.toStdString());
    }
    for (const Facts& item : found->second) {
        item_ = &item;
        if (rest.startsWith('!')) {
            run(rest.mid(1));
        } else {
            row(cells(rest), size_ - 0.5, false);
        }
        item_ = nullptr;
    }
}

/// What an item tells goes before what the whole paper tells.
void Player::per(const QString& list, const QStringList& lines) {
    const Facts* const whole = facts_;
    repeating_ = true;
    for (const Facts& item : whole->lists.at(list)) {
        Facts inner = item;
        inner.amounts.insert(whole->amounts.begin(), whole->amounts.end());
        inner.texts.insert(whole->texts.begin(), whole->texts.end());
        inner.dates.insert(whole->dates.begin(), whole->dates.end());
        facts_ = &inner;
        play(lines);
        facts_ = whole;
    }
    repeating_ = false;
}

void Player::play(const QStringList& lines) {
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString line = lines[i].trimmed();
        if (line.startsWith("per ")) {
            QStringList inner;
            for (++i; i < lines.size() && lines[i].trimmed() != "endper"; ++i) {
                inner += lines[i];
            }
            per(line.mid(4), inner);
        } else if (!line.isEmpty()) {
            run(line);
        }
    }
}

void Player::setMoney(const QString& style) {
    if (style == "hyphen") {
        draft_.money.fraction = AmountStyle::Fraction::hyphen;
        draft_.money.place = AmountStyle::Currency::before;
        draft_.money.currency = "Fr.";
    } else if (style == "spaced") {
        draft_.money.mark = QString(QChar(0x00a0));
    } else {
        throw std::runtime_error("no style of amounts " + style.toStdString());
    }
}

void Player::bill(const QString& arguments) {
    const Cents amount = facts_->amounts.at(arguments.section(' ', 0, 0));
    const QString message = expanded(arguments.section(' ', 1));
    if (draft_.payload) {
        QrBill slip;
        slip.amount = amount;
        slip.message = message;
        slip.structured = draft_.random.chance(70);
        putQrBill(draft_, slip);
        return;
    }
    paper_.space(6);
    paper_.paragraph(expanded("@payto {iban}") + ", " + message, {8.5});
}

/// What needs no values; false when the command is none of them.
bool Player::layOut(const QString& command, const QString& rest) {
    if (command == "head") {
        head(rest);
    } else if (command == "gap") {
        paper_.space(rest.toDouble());
    } else if (command == "rule") {
        paper_.rule(draft_.random.pick(std::vector<double>{0.2, 0.2, 0.5}));
    } else if (command == "page") {
        paper_.newPage();
        paper_.put(paper_.right, 14, draft_.issuer.name + "   2/2",
                   {7.5, false, Align::right, false, greyInk});
        paper_.y = 24;
    } else if (command == "wide") {
        wide_ = true;
    } else if (command == "mono") {
        paper_.family = "Liberation Mono";
    } else if (command == "cols") {
        setColumns(rest);
    } else if (command == "grid") {
        gridWidth_ = rest.toInt();
        gridPlace_ = 0;
        gridTop_ = paper_.y + 3;
    } else if (command == "endgrid") {
        paper_.space(5);
    } else if (command == "maybe") {
        if (draft_.random.chance(rest.section(' ', 0, 0).toInt())) {
            run(rest.section(' ', 1));
        }
    } else if (command == "each") {
        each(rest);
    } else if (command == "bill") {
        bill(rest);
    } else if (command == "money") {
        setMoney(rest);
    } else {
        return false;
    }
    return true;
}

void Player::run(const QString& line) {
    const QString command = line.section(' ', 0, 0);
    const QString rest = line.section(' ', 1).trimmed();
    static const std::map<QString, Type> running{
        {"title", {13, true}}, {"big", {17, true}},
        {"bold", {10, true}},  {"line", {9}},
        {"text", {10}},        {"small", {7.5, false, Align::left, false, greyInk}}};
    if (layOut(command, rest)) {
        return;
    }
    if (const auto type = running.find(command); type != running.end()) {
        paper_.paragraph(expanded(rest), type->second);
        paper_.space(command == "small" ? 0.5 : command == "line" ? 1.5 : 2);
        return;
    }
    const Cells c = cells(rest);
    if (command == "th") {
        row(c, size_ - 1, true);
    } else if (command == "tr") {
        row(c, size_ - 0.5, false);
    } else if (command == "tb") {
        row(c, size_, true);
    } else if (command == "form") {
        form(c);
    } else if (command == "cell") {
        cell(c);
    } else if (command == "below") {
        below(c);
    } else if (command == "foot") {
        draft_.footer(c.join(' '));
    } else if (QStringList{"entry", "dots", "sum", "band", "mid", "colon", "left", "leftsum",
                           "above", "side"}
                   .contains(command)) {
        pair(command, c);
    } else {
        throw std::runtime_error("no command " + command.toStdString());
    }
}

} // namespace

void drawScript(Draft& draft, const Facts& facts, const char* script) {
    draft.money.mark = draft.random.pick(
        std::vector<QString>{"’", "’", "'", "'", "`", "´", " ", QString(QChar(0x00a0)),
                             QString(QChar(0x202f)), QString(QChar(0x2009)), ""});
    if (draft.random.chance(10)) {
        draft.money.fraction = AmountStyle::Fraction::onlyWhenNeeded;
    }
    Player player(draft, facts);
    player.play(QString::fromUtf8(script).split('\n'));
    const double lowest = draft.payload ? 175 : 250; // above the part for payment, or the foot
    if (draft.paper.y < lowest && draft.random.chance(45)) {
        draft.paper.space(4);
        player.run("small @note");
    }
}

std::vector<Layout> scripted(const std::vector<std::vector<Sheet>>& lists) {
    std::vector<Layout> layouts;
    for (const std::vector<Sheet>& sheets : lists) {
        for (const Sheet& sheet : sheets) {
            const auto draw = [sheet](Draft& draft) {
                drawScript(draft, told(draft, sheet.tale), sheet.script);
            };
            layouts.push_back(
                {sheet.group, sheet.name, false, sheet.languages, sheet.payload, draw});
        }
    }
    return layouts;
}

} // namespace corpus
