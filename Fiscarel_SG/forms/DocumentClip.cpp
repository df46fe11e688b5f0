#include "Fiscarel_SG/forms/DocumentClip.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/Icons.h"
#include "Fiscarel_SG/look/PageWidget.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"

#include <algorithm>
#include <utility>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

DocumentClip::DocumentClip(const AppStore& store, QWidget* parent)
    : QToolButton(parent), store_(store) {
    setIcon(look::icon(u"clip"_s, look::Theme::current().accent));
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QToolButton::clicked, this, &DocumentClip::openDocument);
    hide();
}

void DocumentClip::follow(const std::string& path, const QString& label) {
    path_ = path;
    const auto& sources = store_.fieldSources();
    const auto found = sources.find(path);
    document_ = found == sources.end() ? std::nullopt : std::optional(found->second);
    setVisible(document_.has_value());
    if (!document_) {
        return;
    }
    setObjectName(u"clip:"_s + qs(path));
    setAccessibleName(u"Beleg zu %1 öffnen"_s.arg(label));
    const auto document = std::ranges::find(store_.documents(), *document_, &StoredDocument::id);
    setToolTip(u"Aus dem Beleg «%1»"_s.arg(qs(document->title)));
}

void DocumentClip::openDocument() {
    for (QWidget* at = parentWidget(); at != nullptr; at = at->parentWidget()) {
        if (auto* const page = qobject_cast<look::PageWidget*>(at)) {
            Q_EMIT page->documentWanted(qs(document_->toString()), qs(path_));
            return;
        }
    }
}

} // namespace fiscarel::forms
