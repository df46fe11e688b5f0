#include "Fiscarel_SG/forms/editors/ParishEdit.h"

#include <algorithm>
#include <utility>

namespace fiscarel::forms {

namespace {

/// Where the case's municipality of residence stands.
constexpr std::string_view municipalityPath = "municipality";

bool isOffered(const std::vector<Option>& options, const Value& value) {
    const auto* const name = std::get_if<std::string>(&value);
    return name != nullptr && std::ranges::find(options, *name, &Option::raw) != options.end();
}

} // namespace

ParishEdit::ParishEdit(BoundField field, EditorContext context, QWidget* parent)
    : ChoiceEdit(std::move(field), parent), context_(std::move(context)) {
    if (context_.taxCase) {
        offeredFor_ = context_.taxCase().municipality;
    }
    setOptions(offered());
}

/// The page shows every change first, without a path; what the user edited comes behind it.
void ParishEdit::refresh(const QString& editedPath) {
    if (!context_.taxCase) {
        return;
    }
    const std::string& now = context_.taxCase().municipality;
    if (now != offeredFor_) {
        offeredFor_ = now;
        hasMoved_ = true;
        setOptions(offered());
    }
    if (editedPath != qs(municipalityPath)) {
        return;
    }
    const bool wasCleared = !std::exchange(hasMoved_, false) && value() == Value();
    if (!wasCleared && !isOffered(options(), value())) {
        take(options().size() == 1 ? Value(options().front().raw) : Value());
    }
}

/// A parish of elsewhere is told, not dropped: who moved may have entered it first.
void ParishEdit::changed() {
    const Value entered = value();
    const auto* const name = std::get_if<std::string>(&entered);
    QString problem;
    if (name != nullptr && !name->empty() && !isOffered(options(), entered) && !options().empty()) {
        problem = QStringLiteral("Die Kirchgemeinde «%1» gehört nicht zu %2. Wählen Sie eine aus "
                                 "der Liste.")
                      .arg(qs(*name), qs(offeredFor_));
    }
    box()->setMarked(!problem.isEmpty());
    setProblem(problem);
}

std::vector<Option> ParishEdit::offered() const {
    std::vector<Option> offered;
    const auto* const rules = context_.page.stGallen;
    const auto* const municipality =
        rules != nullptr ? rules->municipalities.municipality(offeredFor_) : nullptr;
    if (municipality != nullptr) {
        for (const auto& parish : municipality->parishes) {
            offered.push_back({parish.name, parish.name, {}});
        }
    }
    return offered;
}

} // namespace fiscarel::forms
