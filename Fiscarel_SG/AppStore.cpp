#include "Fiscarel_SG/AppStore.h"

#include "Fiscarel_SG/store/CarryOver.h"
#include "Fiscarel_SG/store/DocumentLinks.h"
#include "Fiscarel_SG/store/ReviewedDocuments.h"
#include "TaxCore/demo/DemoData.h"

#include <algorithm>

namespace fiscarel {

using namespace taxcore;

namespace {

// Where a household lives until it says otherwise.
constexpr const char* firstInStGallen = "Sevelen";
constexpr const char* firstInLiechtenstein = "Vaduz";

constexpr std::string_view selectedYearKey = "selectedYear";
constexpr std::string_view defaultRegionKey = "defaultRegion";

/// The year to begin with.
int firstYear(const Settings& settings) {
    constexpr auto& years = RuleBook::supportedYears;
    const int wanted = settings.number(selectedYearKey).value_or(0);
    return std::ranges::find(years, wanted) != years.end() ? wanted : years.front();
}

void moveTo(TaxCase& taxCase, TaxRegion region) {
    if (region == TaxRegion::liechtenstein) {
        const auto rules = LIRules::load(taxCase.year);
        if (rules && !(*rules)->zuschlag(taxCase.municipality)) {
            taxCase.municipality = firstInLiechtenstein;
        }
    } else {
        const auto rules = RuleBook::load(taxCase.year, "SG");
        if (rules && (*rules)->municipalities.municipality(taxCase.municipality) == nullptr) {
            taxCase.municipality = firstInStGallen;
            taxCase.parish.reset();
        }
    }
    taxCase.region = region;
}

/// The fields in which two cases differ, as paths.
std::vector<std::string> changedPaths(const TaxCase& before, const TaxCase& after) {
    std::vector<std::string> paths;
    for (FieldChange& change : diff(before, after)) {
        paths.push_back(std::move(change.path));
    }
    return paths;
}

} // namespace

AppStore::AppStore(const Services& services, LaunchArguments launch, QObject* parent)
    : QObject(parent), services_(services), isDemo_(launch.demo || services.persistence == nullptr),
      year_(firstYear(services.settings)),
      needsRegionChoice_(!isDemo_ && !services.settings.text(defaultRegionKey)),
      calcTimer_(services.timers.make([this] { recalculate(); })),
      saveTimer_(services.timers.make([this] { saveNow(); })) {
    const auto forgetSources = [this] { fieldSources_.reset(); }; // before anybody else hears of it
    connect(this, &AppStore::currentChanged, this, forgetSources);
    connect(this, &AppStore::documentsChanged, this, forgetSources);
    connect(this, &AppStore::yearChanged, this, forgetSources);
    if (isDemo_) {
        const TaxRegion region =
            launch.liechtenstein ? TaxRegion::liechtenstein : TaxRegion::stGallen;
        state_.cases[year_] = DemoData::household(region, year_);
        recalculate();
    } else {
        load();
    }
}

AppStore::~AppStore() {
    flush();
    removeDeletedFiles();
    services_.writer.drain();
}

void AppStore::load() {
    LoadedState loaded = services_.persistence->load();
    if (auto* state = std::get_if<PersistedState>(&loaded)) {
        adopt(std::move(*state));
    } else if (const auto* unusable = std::get_if<UnusableState>(&loaded)) {
        gate_ = unusable->isNewer ? Gate::closed : Gate::untilEdit;
        gateReason_ = unusable->reason;
        setLoadError("Daten konnten nicht geladen werden: " + unusable->reason);
    }
    ensureCase(year_);
    recalculate();
}

/// A case stands for the year it stands under, whoever wrote the state.
void AppStore::adopt(PersistedState state) {
    state_ = std::move(state);
    state_.version = newestStateVersion;
    for (auto& [year, taxCase] : state_.cases) {
        taxCase.year = year;
    }
}

const TaxCase& AppStore::current() const {
    const auto found = state_.cases.find(year_);
    if (found != state_.cases.end()) {
        return found->second;
    }
    missingCase_ = TaxCase{.year = year_};
    return missingCase_;
}

const std::map<std::string, Uuid>& AppStore::fieldSources() const {
    if (!fieldSources_) {
        fieldSources_ = fiscarel::fieldSources(current(), state_.documents);
    }
    return *fieldSources_;
}

TaxRegion AppStore::defaultRegion() const {
    const auto raw = services_.settings.text(defaultRegionKey);
    return raw ? enumFromRaw<TaxRegion>(*raw).value_or(TaxRegion::stGallen) : TaxRegion::stGallen;
}

const CaseCalculator* AppStore::calculator() {
    const TaxCase& taxCase = current();
    const std::pair key(taxCase.taxRegion(), taxCase.year);
    auto found = calculators_.find(key);
    if (found == calculators_.end()) {
        auto made = CaseCalculator::forCase(taxCase);
        if (!made) {
            setLoadError(made.error().description());
            return nullptr;
        }
        found = calculators_.emplace(key, std::move(*made)).first;
    }
    return &found->second;
}

void AppStore::setYear(int year) {
    if (year == year_) {
        return;
    }
    year_ = year;
    if (!isDemo_) {
        services_.settings.setNumber(selectedYearKey, year);
    }
    history_.endMerging();
    ensureCase(year);
    recalculate();
    Q_EMIT yearChanged();
    Q_EMIT currentChanged({});
}

TaxCase AppStore::freshCase(int year) const {
    TaxCase taxCase{.year = year};
    if (defaultRegion() == TaxRegion::liechtenstein) {
        taxCase.region = TaxRegion::liechtenstein;
        taxCase.municipality = firstInLiechtenstein;
    }
    return taxCase;
}

void AppStore::ensureCase(int year) {
    if (state_.cases.contains(year)) {
        return;
    }
    const auto before = state_.cases.find(year - 1);
    state_.cases[year] =
        before != state_.cases.end() ? carryOver(before->second, year) : freshCase(year);
    scheduleSave();
}

TaxCase AppStore::carryOver(const TaxCase& from, int to) { return fiscarel::carryOver(from, to); }

void AppStore::setCurrent(TaxCase taxCase, std::string name) {
    const TaxCase& old = current();
    taxCase.year = year_;
    if (taxCase == old) {
        return;
    }
    const std::vector<std::string> paths = changedPaths(old, taxCase);
    Edit edit{.name = std::move(name), .at = services_.clock.now()};
    if (paths.size() == 1) {
        edit.mergeKey = std::to_string(year_) + " " + paths.front();
    }
    changeCase(std::move(taxCase), std::move(edit));
    Q_EMIT currentChanged(paths);
}

void AppStore::edit(std::string name, const std::function<void(TaxCase&)>& change) {
    TaxCase changed = current();
    change(changed);
    setCurrent(std::move(changed), std::move(name));
}

void AppStore::applyDocument(const Uuid& id, TaxCase taxCase, std::vector<AppliedValue> applied) {
    const auto found = std::ranges::find(state_.documents, id, &StoredDocument::id);
    if (found == state_.documents.end()) {
        return;
    }
    Edit edit{.name = "Beleg «" + found->title + "» übernehmen",
              .document = Edit::OfDocument{*found, *found},
              .at = services_.clock.now()};
    StoredDocument& after = edit.document->after;
    after.isApplied = true;
    after.applied = applied.empty() ? std::nullopt : std::optional(std::move(applied));
    *found = after;
    const std::vector<std::string> paths = changedPaths(current(), taxCase);
    changeCase(std::move(taxCase), std::move(edit));
    Q_EMIT documentsChanged();
    Q_EMIT currentChanged(paths);
}

/// Puts a case in the place of the current one and keeps the edit that did it.
void AppStore::changeCase(TaxCase taxCase, Edit edit) {
    TaxCase& place = state_.cases.try_emplace(year_, TaxCase{.year = year_}).first->second;
    edit.cases.push_back({year_, std::make_shared<const TaxCase>(std::move(place)),
                          std::make_shared<const TaxCase>(taxCase)});
    place = std::move(taxCase);
    history_.record(std::move(edit));
    Q_EMIT historyChanged();
    scheduleRecalculate();
    edited();
}

void AppStore::removeYear(int year) {
    const auto found = state_.cases.find(year);
    if (found == state_.cases.end()) {
        return;
    }
    Edit edit{.name = "Steuerjahr " + std::to_string(year) + " löschen",
              .at = services_.clock.now()};
    edit.cases.push_back(
        {year, std::make_shared<const TaxCase>(std::move(found->second)), nullptr});
    state_.cases.erase(found);
    unread_.forget(year);
    keepSelectedCase();
    history_.record(std::move(edit));
    Q_EMIT historyChanged();
    if (year == year_) {
        Q_EMIT currentChanged({});
    }
    scheduleRecalculate();
    edited();
}

/// The selected year has a case, be it a new one.
void AppStore::keepSelectedCase() { state_.cases.try_emplace(year_, TaxCase{.year = year_}); }

void AppStore::edited() {
    if (gate_ == Gate::untilEdit) {
        openGate();
    }
    if (gate_ == Gate::closed) {
        saveProblem_ = std::string(notSaved) + gateReason_;
        Q_EMIT saveStateChanged();
    }
    scheduleSave();
}

/// From now on the state file is written over; what it was lies among the backups.
void AppStore::openGate() { gate_ = Gate::open; }

std::vector<Notice> AppStore::notices() const {
    std::vector<Notice> notices = unread_.notices(current());
    notices.insert(notices.end(), review_.notices.begin(), review_.notices.end());
    return notices;
}

void AppStore::setUnread(int year, const std::string& path, std::optional<UnreadText> text) {
    setUnread(year, {{path, std::move(text)}});
}

void AppStore::setUnread(int year, std::map<std::string, std::optional<UnreadText>> texts) {
    const auto found = state_.cases.find(year);
    bool changed = false;
    for (auto& [path, text] : texts) {
        changed = (found != state_.cases.end() && unread_.set(found->second, path, std::move(text)))
                  || changed;
    }
    if (changed) {
        Q_EMIT unreadChanged();
    }
}

void AppStore::showUnread(const std::function<bool(const std::string& path)>& isThere) {
    if (unread_.show(current(), isThere)) {
        Q_EMIT unreadChanged();
    }
}

std::optional<std::string> AppStore::undo() { return step(&History::undo); }
std::optional<std::string> AppStore::redo() { return step(&History::redo); }

std::optional<std::string> AppStore::step(std::optional<Edit> (History::*take)(PersistedState&)) {
    const auto edit = (history_.*take)(state_);
    Q_EMIT historyChanged();
    if (!edit) {
        return std::nullopt;
    }
    keepSelectedCase();
    announce(*edit);
    scheduleRecalculate();
    edited();
    return edit->name;
}

/// Tells what an undone or repeated edit changed, and goes where it can be seen.
void AppStore::announce(const Edit& edit) {
    if (edit.removed || edit.document) {
        Q_EMIT documentsChanged();
    }
    std::vector<std::string> paths;
    if (!edit.cases.empty()) {
        const bool concernsYear =
            std::ranges::any_of(edit.cases, [&](const auto& part) { return part.year == year_; });
        const Edit::OfCase& part = edit.cases.front();
        paths = part.after ? changedPaths(*part.before, *part.after) : std::vector<std::string>{};
        if (concernsYear) {
            Q_EMIT currentChanged({});
        } else if (state_.cases.contains(part.year)) {
            setYear(part.year);
        }
    }
    Q_EMIT stepTaken(edit.removed ? std::vector<std::string>{} : paths);
}

void AppStore::setRegion(TaxRegion region) {
    if (current().taxRegion() == region) {
        return;
    }
    edit("Steuergebiet", [&](TaxCase& taxCase) { moveTo(taxCase, region); });
}

void AppStore::chooseInitialRegion(TaxRegion region) {
    if (!isDemo_) {
        services_.settings.setText(defaultRegionKey, rawValue(region));
    }
    needsRegionChoice_ = false;
    setRegion(region);
    Q_EMIT regionChoiceChanged();
}

void AppStore::resetYear() {
    writeBackup(backup::beforeReset, [this, year = year_](const FileResult<void>& kept) {
        if (!kept) {
            setLoadError(
                "Das Steuerjahr ist nicht zurückgesetzt, weil sich keine Sicherung anlegen "
                "liess: "
                + kept.error().description());
            return;
        }
        setYear(year);
        changeCase(TaxCase{.year = year}, {.name = "Steuerjahr zurücksetzen"});
        unread_.forget(year);
        calcTimer_->stop();
        recalculate();
        Q_EMIT currentChanged({});
    });
}

void AppStore::setTransferChecked(int year, const std::string& row, bool checked) {
    const auto found = state_.transferChecked.find(year);
    const bool was = found != state_.transferChecked.end() && found->second.contains(row);
    if (was == checked) {
        return;
    }
    if (checked) {
        state_.transferChecked[year].insert(row);
    } else {
        found->second.erase(row);
    }
    Q_EMIT transferChanged(year);
    edited();
}

void AppStore::scheduleRecalculate() { calcTimer_->start(quietBeforeRecalculation); }

void AppStore::recalculate() {
    const CaseCalculator* calculate = calculator();
    result_.reset();
    review_ = {};
    if (calculate != nullptr) {
        const TaxCase& taxCase = current();
        result_ = calculate->calculate(taxCase);
        ReviewInput input{.calculator = *calculate,
                          .taxCase = taxCase,
                          .result = *result_,
                          .today = services_.clock.local().date,
                          .documents = reviewedDocuments(state_.documents, year_)};
        for (const auto& [year, other] : state_.cases) {
            if (year != year_) {
                input.otherYears.push_back(&other);
            }
        }
        review_ = Review::of(input);
    }
    Q_EMIT resultChanged();
}

void AppStore::setLoadError(std::string message) {
    loadError_ = std::move(message);
    Q_EMIT loadErrorChanged();
}

void AppStore::dismissLoadError() {
    loadError_.reset();
    Q_EMIT loadErrorChanged();
}

} // namespace fiscarel
