#pragma once

#include "Fiscarel_SG/forms/Field.h"
#include "Fiscarel_SG/store/UnreadTexts.h"

#include <QString>
#include <string>

namespace fiscarel::forms {

/// What a field or a cell holds that cannot be read, as the store is told of it.
struct UnreadEntry {
    QString text;       ///< as it was typed
    QString label;      ///< German: what the field is called
    QString problem;    ///< German: why it cannot be read, one sentence
    Value before;       ///< what the field holds meanwhile
    std::string pageId; ///< of the page it stands on
};

/// With a notice for the review that says what counts meanwhile.
UnreadText unreadNotice(const BoundField& field, const UnreadEntry& entry);

} // namespace fiscarel::forms
