#include "Fiscarel_SG/look/SwissGerman.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace fiscarel::look {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The German of the window library is that of Germany; Switzerland writes no ß.
class SwissTranslator final : public QTranslator {
  public:
    using QTranslator::QTranslator;

    QString translate(const char* context, const char* source, const char* disambiguation,
                      int n) const override {
        QString text = QTranslator::translate(context, source, disambiguation, n);
        return text.replace(u"ß"_s, u"ss"_s);
    }
};

} // namespace

void speakSwissGerman(QApplication& application) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Switzerland));
    auto* const translator = new SwissTranslator(&application);
    if (translator->load(u"qtbase_de"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(translator);
    }
}

} // namespace fiscarel::look
