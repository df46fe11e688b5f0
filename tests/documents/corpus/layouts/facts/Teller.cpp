#include "tests/documents/corpus/layouts/facts/Teller.h"

#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <stdexcept>

// The commands of a tale.

namespace corpus {
namespace {

bool opensBlock(const QString& line) {
    return line.trimmed().startsWith("list ") && !line.contains(" : ");
}

/// The lines up to the end of the list that opens at `at`, which moves there.
QStringList block(const QStringList& lines, qsizetype& at) {
    QStringList inner;
    for (int depth = 1; ++at < lines.size();) {
        depth += opensBlock(lines[at]) ? 1 : lines[at].trimmed() == "end" ? -1 : 0;
        if (depth == 0) {
            break;
        }
        inner += lines[at];
    }
    return inner;
}

} // namespace

void Teller::list(const QString& head, const QStringList& lines) {
    const QString name = head.section(' ', 0, 0);
    const QString form = head.section(' ', 1, 1);
    const QString rest = head.section(' ', 2).trimmed();
    QStringList items; // a name or a person each
    if (form == "of") {
        items = wordsOfLanguage(rest);
    } else if (form == "people") {
        items = rest.split(' ');
    } else {
        items.resize(static_cast<qsizetype>(number(head.section(' ', 1))));
    }
    here().facts.lists[name];
    for (qsizetype i = 0; i < items.size(); ++i) {
        Scope scope;
        scope.numbers["i"] = i + 1;
        scope.who = here().who;
        if (form == "of") {
            scope.facts.texts["what"] = items[i].simplified();
        } else if (form == "people") {
            const Someone who = person(items[i]);
            scope.who = who;
            scope.facts.texts = {{"who", who.name()}, {"first", who.first}, {"number", who.number}};
            scope.facts.dates["born"] = who.birth;
        }
        scopes_.push_back(scope);
        runAll(lines);
        close(name);
    }
}

void Teller::itemOf(const QString& rest) {
    Scope scope;
    scope.who = here().who;
    scopes_.push_back(scope);
    if (const QString name = rest.section(' ', 2); !name.isEmpty()) {
        here().facts.texts["name"] = words(name);
    }
    use(rest.section(' ', 1, 1));
    close(rest.section(' ', 0, 0));
}

/// Puts the finished item into its list; adds its amounts up and names them by its place.
void Teller::close(const QString& list) {
    const Scope item = here();
    scopes_.pop_back();
    if (item.dropped) {
        return;
    }
    Facts& outer = here().facts;
    outer.lists[list].push_back(item.facts);
    const QString place = QString::number(outer.lists[list].size());
    for (const auto& [name, cents] : item.facts.amounts) {
        outer.amounts[list + "." + name] += cents;
        if (here().sums.contains(name)
            || !(outer.amounts.contains(name) || here().numbers.contains(name))) {
            here().sums.insert(name);
            outer.amounts[name] += cents;
        }
        outer.amounts.emplace(name + (name.back().isDigit() ? "of" : "") + place, cents);
    }
    for (const auto& [name, text] : item.facts.texts) {
        outer.texts.emplace(name + place, text);
    }
    for (const auto& [name, day] : item.facts.dates) {
        outer.dates.emplace(name + place, day);
    }
    for (const auto& [name, items] : item.facts.lists) {
        outer.lists.emplace(name + place, items);
    }
}

void Teller::again(const QString& rest) {
    const QString name = rest.section(' ', 0, 0);
    const std::vector<Facts> items = here().facts.lists.at(name);
    for (size_t i = 0; i < items.size(); ++i) {
        Scope scope;
        scope.facts = items[i];
        scopes_.push_back(scope);
        run(rest.section(' ', 1));
        const Facts changed = here().facts;
        scopes_.pop_back();
        here().facts.lists[name][i] = changed;
    }
}

void Teller::join(const QString& rest) {
    const QStringList names = rest.split(' ');
    std::vector<Facts>& joined = here().facts.lists[names[0]];
    for (const QString& name : names.mid(1)) {
        const std::vector<Facts> items = here().facts.lists[name];
        joined.insert(joined.end(), items.begin(), items.end());
    }
    const int first = draft_.random.between(0, static_cast<int>(joined.size()) - 1);
    std::rotate(joined.begin(), joined.begin() + first, joined.end());
}

void Teller::record(const QString& rest, bool accepted) {
    const QStringList parts = rest.split(' ', Qt::SkipEmptyParts);
    TruthRecord record;
    record.kind = parts.at(0);
    record.year = draft_.year;
    const Someone who = person(parts.value(1));
    record.personName = parts.value(1) == "-" ? QString() : who.name();
    static const QRegularExpression form("^(\\w+)([=:@])(.+)$");
    for (const QString& part : parts.mid(2)) {
        const auto match = form.match(part);
        const QByteArray field = match.captured(1).toUtf8();
        const QString value = match.captured(3);
        if (part == "birth") {
            record.birthDate = who.birth;
        } else if (field == "derived") {
            record.derived += value;
        } else if (match.captured(2) == "=") {
            record.amount(field, number(value));
        } else if (match.captured(2) == "@") {
            record.date(field, QDate::fromJulianDay(number(value)));
        } else if (match.captured(2) == ":") {
            QStringList forms;
            for (const QString& name : value.split('+')) {
                forms += field == "ibanOrValor" ? textNamed(name).remove(' ') : textNamed(name);
            }
            record.text(field, forms.join(" | "));
        } else {
            throw std::runtime_error("no field " + part.toStdString());
        }
    }
    if (!accepted) {
        draft_.truth.records.push_back(record);
    } else if (!record.values.isEmpty()) {
        draft_.truth.accepted.push_back(record);
    }
}

/// The totals of a register may be given besides its lines, the income in either column.
void Teller::acceptSums() {
    std::map<QString, Cents> sums;
    for (const TruthRecord& record : draft_.truth.records) {
        for (auto it = record.values.begin(); it != record.values.end(); ++it) {
            sums[record.kind + "." + it.key()] += centsOf(it.value()).value_or(0);
        }
    }
    const auto accept = [this](const char* kind, const std::map<const char*, Cents>& values) {
        TruthRecord record;
        record.kind = kind;
        record.year = draft_.year;
        for (const auto& [field, cents] : values) {
            record.amount(field, cents);
        }
        if (!record.values.isEmpty()) {
            draft_.truth.accepted.push_back(record);
        }
    };
    const Cents value = sums["security.taxValue"];
    const Cents with = sums["security.incomeWithWithholding"];
    const Cents without = sums["security.incomeWithoutWithholding"];
    accept("security", {{"taxValue", value},
                        {"incomeWithWithholding", with},
                        {"incomeWithoutWithholding", without}});
    accept("security", {{"taxValue", value}, {"incomeWithWithholding", with + without}});
    accept("security", {{"taxValue", value}, {"incomeWithoutWithholding", with + without}});
    accept("debt", {{"amount", sums["debt.amount"]}, {"interest", sums["debt.interest"]}});
}

void Teller::runAll(const QStringList& lines) {
    for (qsizetype i = 0; i < lines.size(); ++i) {
        QString line = lines[i].trimmed();
        while (!line.isEmpty() && !line.startsWith("list ")) {
            if (!here().dropped) {
                run(line.section(';', 0, 0).trimmed());
            }
            line = line.section(';', 1).trimmed();
        }
        if (line.contains(" : ")) {
            list(line.mid(5).section(" : ", 0, 0), {line.section(" : ", 1)});
        } else if (!line.isEmpty()) {
            list(line.mid(5), block(lines, i));
        }
    }
}

void Teller::assign(const QString& form, const QString& name, const QString& sum) {
    const qint64 value = number(sum);
    Facts& facts = here().facts;
    if (form.isEmpty()) {
        facts.amounts[name] = value;
        here().numbers.erase(name);
    } else if (form == "date") {
        facts.dates[name] = QDate::fromJulianDay(value);
    } else if (form == "english") {
        facts.texts[name] = QLocale::c().toString(QDate::fromJulianDay(value), "d MMMM yyyy");
    } else {
        here().numbers[name] = value;
        facts.texts[name] =
            form == "month"
                ? draft_.longDate(QDate(draft_.year, static_cast<int>(value), 1)).section(' ', 1, 1)
            : form == "percent" ? QString::number(static_cast<double>(value) / 100.0, 'f', 2) + " %"
            : form == "fixed2"  ? QString::number(static_cast<double>(value) / 100.0, 'f', 2)
            : form == "fixed3"  ? QString::number(static_cast<double>(value) / 1000.0, 'f', 3)
            : form == "fixed4"  ? QString::number(static_cast<double>(value) / 10000.0, 'f', 4)
                                : QString::number(value);
    }
}

/// What concerns the paper as a whole; false when the command is none of it.
bool Teller::setOut(const QString& command, const QString& rest) {
    if (command == "by") {
        draft_.truth.kind = rest.section(' ', 0, 0);
        setSender(rest.section(' ', 1));
        if (draft_.random.chance(20)) {
            draft_.money.fraction = AmountStyle::Fraction::hyphen;
            draft_.money.currency = draft_.one("Fr.|CHF|sFr.|Fr");
        }
    } else if (command == "from") {
        setSender(rest);
    } else if (command == "also") {
        draft_.truth.alsoKinds = rest.split(',');
    } else if (command == "kind") {
        draft_.truth.kind = rest;
    } else if (command == "principality") {
        inPrincipality();
    } else if (command == "firstname") {
        draft_.family.one.first = words(rest);
    } else if (command == "year") {
        draft_.year = static_cast<int>(number(rest));
    } else if (command == "dated") {
        draft_.dated = QDate::fromJulianDay(number(rest));
    } else if (command == "ages") {
        for (Someone* child : {&draft_.family.child, &draft_.family.secondChild}) {
            const int age = draft_.random.between(rest.section(' ', 0, 0).toInt(),
                                                  rest.section(' ', 1).toInt());
            child->birth =
                QDate(draft_.year - age, child->birth.month(), std::min(28, child->birth.day()));
        }
    } else if (command == "retire") {
        for (Someone* who : {&draft_.family.one, &draft_.family.two}) {
            const int age = rest.toInt() + draft_.random.between(0, 9);
            who->birth = QDate(draft_.year - age, draft_.random.between(1, 12),
                               draft_.random.between(1, 28));
        }
    } else {
        return false;
    }
    return true;
}

void Teller::run(const QString& given) {
    QString line = given;
    if (const auto place = here().numbers.find("i"); place != here().numbers.end()) {
        line.replace('$', QString::number(place->second));
    }
    static const QRegularExpression assignment(
        "^(?:(date|english|count|month|percent|fixed[234]) )?(\\w+) = (.+)$");
    const QString command = line.section(' ', 0, 0);
    const QString rest = line.section(' ', 1).trimmed();
    if (command == "if") {
        if (number(rest.section(" : ", 0, 0)) != 0) {
            run(rest.section(" : ", 1));
        }
    } else if (command == "again") {
        again(rest);
    } else if (const auto match = assignment.match(line); match.hasMatch()) {
        assign(match.captured(1), match.captured(2), match.captured(3));
    } else if (command == "text") {
        here().facts.texts[rest.section(' ', 0, 0)] = words(rest.section(' ', 1));
    } else if (command == "item") {
        itemOf(rest);
    } else if (command == "join") {
        join(rest);
    } else if (command == "skip") {
        here().dropped = number(rest) != 0;
    } else if (command == "use") {
        use(rest);
    } else if (command == "acceptsums") {
        acceptSums();
    } else if (command == "note" || command == "accept") {
        record(rest, command == "accept");
    } else if (!setOut(command, rest)) {
        throw std::runtime_error("no command " + line.toStdString());
    }
}

} // namespace corpus
