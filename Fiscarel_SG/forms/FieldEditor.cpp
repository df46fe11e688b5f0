#include "Fiscarel_SG/forms/FieldEditor.h"

#include "Fiscarel_SG/forms/editors/AmountEdit.h"
#include "Fiscarel_SG/forms/editors/CheckEdit.h"
#include "Fiscarel_SG/forms/editors/ChoiceEdit.h"
#include "Fiscarel_SG/forms/editors/DateEdit.h"
#include "Fiscarel_SG/forms/editors/IbanEdit.h"
#include "Fiscarel_SG/forms/editors/MunicipalityEdit.h"
#include "Fiscarel_SG/forms/editors/NumberEdit.h"
#include "Fiscarel_SG/forms/editors/ParagraphEdit.h"
#include "Fiscarel_SG/forms/editors/ParishEdit.h"
#include "Fiscarel_SG/forms/editors/TextEdit.h"

namespace fiscarel::forms {

FieldEditor* makeEditor(const BoundField& field, const EditorContext& context, QWidget* parent) {
    switch (field.editor) {
    case Editor::amount:
        return new AmountEdit(field, parent);
    case Editor::decimal:
    case Editor::integer:
        return new NumberEdit(field, parent);
    case Editor::text:
        return new TextEdit(field, parent);
    case Editor::paragraph:
        return new ParagraphEdit(field, parent);
    case Editor::check:
        return new CheckEdit(field, parent);
    case Editor::choice:
        return new ChoiceEdit(field, parent);
    case Editor::date:
        return new DateEdit(field, context.page.year, parent);
    case Editor::iban:
        return new IbanEdit(field, parent);
    case Editor::municipality:
        return new MunicipalityEdit(field, context.page, parent);
    case Editor::parish:
        return new ParishEdit(field, context, parent);
    }
    return new TextEdit(field, parent);
}

} // namespace fiscarel::forms
