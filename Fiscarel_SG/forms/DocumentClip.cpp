#include "Fiscarel_SG/forms/DocumentClip.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/Icons.h"
#include "Fiscarel_SG/look/PageWidget.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/look/Theme.h"

#include <algorithm>
#include <utility>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

DocumentClip::DocumentClip(const AppStore& store, std::string path, const QString& label,
                           QWidget* parent)
    : QToolButton(parent), store_(store), path_(std::move(path)) {
    setObjectName(u"clip:"_s + qs(path_));
    setAccessibleName(u"Beleg zu %1 öffnen"_s.arg(label));
    setIcon(look::icon(u"clip"_s, look::Theme::current().accent));
    setFocusPolicy(Qt::StrongFocus); // for the keyboard, as the help beside it
    connect(this, &QToolButton::clicked, this, &DocumentClip::openDocument);
    refresh();
}

void DocumentClip::refresh() {
    const auto& sources = store_.fieldSources();
    const auto found = sources.find(path_);
    document_ = found == sources.end() ? std::nullopt : std::optional(found->second);
    setVisible(document_.has_value());
    if (document_) {
        const auto document =
            std::ranges::find(store_.documents(), *document_, &StoredDocument::id);
        setToolTip(u"Aus dem Beleg «%1»"_s.arg(qs(document->title)));
    }
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
