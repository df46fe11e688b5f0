#include "Fiscarel_SG/shell/Sidebar.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/KnownYears.h"
#include "Fiscarel_SG/cloud/CloudService.h"
#include "Fiscarel_SG/look/Icons.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/account/CloudText.h"
#include "Fiscarel_SG/pages/overview/Progress.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDateTime>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <set>

namespace fiscarel::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString account = u"account"_s;

/// Whether anything of the user's own is there to be saved.
bool hasEntries(const AppStore& store) {
    return store.undoName() || !store.documents().empty()
           || std::ranges::any_of(store.cases(), [](const auto& yearAndCase) {
                  return !pages::isUntouched(yearAndCase.second);
              });
}

} // namespace

Sidebar::Sidebar(AppStore& store, CloudService* cloud, const std::vector<PageEntry>& pages,
                 QWidget* parent)
    : QWidget(parent), store_(store), cloud_(cloud), year_(new QComboBox(this)),
      region_(new QComboBox(this)), saved_(new QLabel(this)),
      retry_(new QPushButton(u"Nochmals speichern"_s, this)), cloudState_(new QLabel(this)),
      cloudDoor_(new QPushButton(this)) {
    setObjectName(u"sidebar"_s);
    setAttribute(Qt::WA_StyledBackground);
    look::setRole(this, "sidebar");
    setFixedWidth(216);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(12, 20, 12, 14);
    column->setSpacing(2);
    auto* const product = new QLabel(u"Fiscarel SG"_s, this);
    look::setRole(product, "product");
    product->setContentsMargins(10, 0, 0, 6);
    auto* const head = new QHBoxLayout;
    head->setSpacing(0);
    head->addWidget(product, 1);
    QPushButton* const search = addTool(u"search"_s, *head);
    search->setAccessibleName(u"Suchen"_s);
    search->setToolTip(u"Felder, Zeilen, Belege und Seiten suchen (Ctrl+K)"_s);
    connect(search, &QPushButton::clicked, this, &Sidebar::searchWanted);
    undo_ = addTool(u"undo"_s, *head);
    connect(undo_, &QPushButton::clicked, this, &Sidebar::undoWanted);
    redo_ = addTool(u"redo"_s, *head);
    connect(redo_, &QPushButton::clicked, this, &Sidebar::redoWanted);
    column->addLayout(head);
    region_->setObjectName(u"region"_s);
    region_->setAccessibleName(u"Steuergebiet"_s);
    region_->addItems({u"St.Gallen"_s, u"Liechtenstein"_s});
    year_->setObjectName(u"year"_s);
    year_->setAccessibleName(u"Steuerjahr"_s);
    column->addWidget(region_);
    column->addSpacing(4);
    column->addWidget(year_);
    column->addSpacing(10);
    auto* const area = new QScrollArea(this); // the window may be low and the problem long
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    auto* const list = new QWidget(area);
    auto* const entries = new QVBoxLayout(list);
    entries->setContentsMargins(0, 0, 0, 0);
    entries->setSpacing(2);
    for (const PageEntry& page : pages) {
        addPage(page, *entries);
    }
    entries->addStretch(1);
    area->setWidget(list);
    column->addWidget(area, 1);
    addFoot(*column);
    connect(year_, &QComboBox::activated, this,
            [this](int index) { Q_EMIT yearWanted(year_->itemData(index).toInt()); });
    connect(region_, &QComboBox::activated, this,
            [this](int index) { Q_EMIT regionWanted(index == 1); });
    refresh();
    refreshSaveState();
    refreshCloud();
    refreshHistory();
    refreshTheme();
}

void Sidebar::addFoot(QVBoxLayout& column) {
    for (QLabel* const label : {saved_, cloudState_}) {
        label->setWordWrap(true);
        look::setRole(label, "small");
    }
    saved_->setObjectName(u"saveState"_s);
    cloudState_->setObjectName(u"cloudLine"_s);
    cloudDoor_->setObjectName(u"cloudLineDoor"_s);
    look::setRole(cloudDoor_, "smalllink");
    column.addWidget(saved_);
    column.addWidget(retry_);
    column.addWidget(cloudState_);
    column.addWidget(cloudDoor_, 0, Qt::AlignLeft);
    connect(retry_, &QPushButton::clicked, this, [this] { store_.saveNow(); });
    connect(cloudDoor_, &QPushButton::clicked, this, [this] { Q_EMIT pageWanted(u"account"_s); });
}

QPushButton* Sidebar::addTool(const QString& name, QHBoxLayout& line) {
    auto* const button = new QPushButton(this);
    button->setObjectName(u"tool:"_s + name);
    look::setRole(button, "tool");
    button->setFixedWidth(24);
    line.addWidget(button);
    tools_[name] = button;
    return button;
}

void Sidebar::addPage(const PageEntry& page, QVBoxLayout& column) {
    auto* const button = new QPushButton(page.title, this);
    button->setObjectName(u"nav:"_s + page.id);
    button->setCheckable(true);
    button->setAutoExclusive(true);
    look::setRole(button, "nav");
    auto* const inside = new QHBoxLayout(button);
    inside->setContentsMargins(0, 0, 8, 0);
    inside->addStretch(1);
    auto* const badge = new QLabel(button);
    look::setRole(badge, "badge");
    badge->setAttribute(Qt::WA_TransparentForMouseEvents);
    badge->hide();
    inside->addWidget(badge, 0, Qt::AlignVCenter);
    column.addWidget(button);
    buttons_[page.id] = button;
    badges_[page.id] = badge;
    connect(button, &QPushButton::clicked, this, [this, id = page.id] { Q_EMIT pageWanted(id); });
}

void Sidebar::setPage(const QString& id) {
    if (const auto found = buttons_.find(id); found != buttons_.end()) {
        const bool keyboardIsHere = std::ranges::any_of(
            buttons_, [](const auto& entry) { return entry.second->hasFocus(); });
        found->second->setChecked(true);
        if (!isVisible() || keyboardIsHere) { // at the start it is here too
            found->second->setFocus();
        }
    }
}

void Sidebar::refresh() {
    std::set<int> years = knownYears(store_);
    years.insert(store_.year());
    year_->clear();
    for (const int year : years) {
        year_->addItem(u"Steuerjahr %1"_s.arg(year), year);
    }
    year_->setCurrentIndex(year_->findData(store_.year()));
    const bool liechtenstein = store_.current().taxRegion() == taxcore::TaxRegion::liechtenstein;
    region_->setCurrentIndex(liechtenstein ? 1 : 0);

    std::map<QString, int> open;
    for (const taxcore::Notice& notice : store_.notices()) {
        if (notice.level != taxcore::Notice::Level::info) {
            ++open[u"review"_s];
            if (notice.area) {
                ++open[qs(*notice.area)];
            }
        }
    }
    const QString documents = u"documents"_s;
    open[documents] = static_cast<int>(
        std::ranges::count_if(store_.documents(), [&](const StoredDocument& document) {
            return document.year == store_.year() && !document.isApplied;
        }));
    for (const auto& [id, badge] : badges_) {
        if (id != account) {
            setBadge(id, open[id],
                     id == documents ? u"%1, %2 nicht übernommen"_s : u"%1, %2 offene Hinweise"_s);
        }
    }
}

void Sidebar::setBadge(const QString& id, int count, const QString& told) {
    QLabel* const badge = badges_.at(id);
    QPushButton* const button = buttons_.at(id);
    badge->setVisible(count > 0);
    badge->setText(count > 0 ? QString::number(count) : QString());
    button->setAccessibleName(count > 0 ? told.arg(button->text()).arg(count) : button->text());
}

void Sidebar::refreshCloud() {
    const pages::CloudLine line =
        cloud_ != nullptr ? pages::cloudLine(cloud_->status(), QDateTime::currentDateTime())
                          : pages::CloudLine();
    cloudState_->setText(line.text);
    cloudState_->setVisible(!line.text.isEmpty() && !line.asksUser);
    cloudDoor_->setText(line.text);
    cloudDoor_->setVisible(line.asksUser);
    const std::size_t open = cloud_ != nullptr ? pages::openPoints(cloud_->status()) : 0;
    setBadge(account, static_cast<int>(open), u"%1, %2 offen in der Cloud"_s);
}

void Sidebar::refreshSaveState() {
    const bool problem = store_.saveProblem().has_value();
    QString text;
    if (problem) {
        text = qs(*store_.saveProblem());
    } else if (store_.isDemo()) {
        text = u"Demohaushalt – nichts wird gespeichert"_s;
    } else if (store_.hasUnsavedChanges()) {
        text = u"Wird gespeichert …"_s;
    } else if (const auto saved = store_.lastSaved(); saved && hasEntries(store_)) {
        text =
            u"Gespeichert "_s + QDateTime::fromSecsSinceEpoch(saved->seconds).toString(u"HH:mm"_s);
    }
    saved_->setText(text);
    look::setRole(saved_, problem ? "error" : "small");
    retry_->setVisible(problem && !store_.awaitsRecovery());
}

void Sidebar::refreshHistory() {
    const auto tell = [](QPushButton& button, const std::optional<std::string>& edit,
                         const QString& verb, const QString& none, const QString& keys) {
        const QString what = edit ? u"«%1» %2"_s.arg(qs(*edit), verb) : none;
        button.setEnabled(edit.has_value());
        button.setAccessibleName(what);
        button.setToolTip(u"%1 (%2)"_s.arg(what, keys));
    };
    tell(*undo_, store_.undoName(), u"rückgängig machen"_s,
         u"Es gibt nichts rückgängig zu machen"_s, u"Ctrl+Z"_s);
    tell(*redo_, store_.redoName(), u"wiederherstellen"_s, u"Es gibt nichts wiederherzustellen"_s,
         u"Ctrl+Shift+Z"_s);
}

void Sidebar::refreshTheme() {
    for (const auto* const drawn : {&buttons_, &tools_}) {
        for (const auto& [name, button] : *drawn) {
            button->setIcon(look::icon(name, look::Theme::current().text));
            button->setIconSize({18, 18});
        }
    }
}

} // namespace fiscarel::shell
