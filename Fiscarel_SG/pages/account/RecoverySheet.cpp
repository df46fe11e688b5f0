#include "Fiscarel_SG/pages/account/RecoverySheet.h"

#include "Fiscarel_SG/forms/InputText.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/pages/account/RecoveryKeyEdit.h"

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using paper::Type;

namespace {

/// Sets lines from the top of a page down.
class Writer {
  public:
    explicit Writer(paper::PaperPage& page) : page_(page) {}

    void space(double points) { y_ += points; }
    void write(Type type, const QString& text, double indent = 0) {
        const double width = paper::contentWidth - 2 * indent;
        for (const QString& line : paper::wrapped(type, text, width)) {
            page_.texts.push_back(
                {QPointF(paper::marginLeft + indent, y_ + paper::baseline(type)), line, type});
            y_ += paper::leading(type);
        }
    }
    void rule(paper::PaperRule::Ink ink) {
        constexpr double weight = 0.8;
        page_.rules.push_back({QRectF(paper::marginLeft, y_, paper::contentWidth, weight), ink});
        y_ += weight;
    }

  private:
    paper::PaperPage& page_;
    double y_ = paper::marginTop;
};

} // namespace

paper::PaperDocument recoverySheet(const std::string& email, const std::string& key,
                                   const taxcore::Date& day) {
    paper::PaperPage page;
    Writer sheet(page);
    sheet.write(Type::kicker, u"Fiscarel SG · Cloud"_s);
    sheet.space(6);
    sheet.write(Type::title, u"Wiederherstellungsschlüssel"_s);
    sheet.space(26);
    sheet.write(Type::note, u"Adresse des Kontos"_s);
    sheet.space(2);
    sheet.write(Type::lead, paper::paperText(email));
    sheet.space(14);
    sheet.write(Type::note, u"Erstellt am"_s);
    sheet.space(2);
    sheet.write(Type::lead, qs(forms::formatDate(day)));
    sheet.space(26);
    sheet.rule(paper::PaperRule::Ink::accent);
    sheet.space(22);
    for (const QString& line : recoveryKeyLines(qs(key))) {
        sheet.write(Type::code, line);
    }
    sheet.space(22);
    sheet.rule(paper::PaperRule::Ink::accent);
    sheet.space(26);
    sheet.write(Type::lead,
                u"Mit diesem Schlüssel öffnen Sie die verschlüsselte Kopie Ihrer Angaben und "
                "Belege in der Cloud auf einem weiteren oder neuen Computer."_s);
    sheet.space(16);
    sheet.write(
        Type::body,
        u"Bitte gut aufbewahren, nicht beim Computer. Wer diesen Schlüssel und den Zugang "
        "zur E-Mail-Adresse hat, kann die Kopie lesen. Ohne ihn und ohne einen angemeldeten "
        "Computer kann sie niemand öffnen, auch der Betreiber des Servers nicht. Null und "
        "Eins sind immer Ziffern; die Buchstaben I, L, O und U kommen nicht vor."_s);
    paper::PaperDocument document{.title = u"Wiederherstellungsschlüssel"_s};
    document.pages.push_back(std::move(page));
    return document;
}

} // namespace fiscarel::pages
