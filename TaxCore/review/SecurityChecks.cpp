#include "TaxCore/base/Iban.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/result/Sums.h"
#include "TaxCore/review/CheckContext.h"
#include "TaxCore/review/CheckText.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <utility>

namespace taxcore::review {

namespace {

constexpr std::string_view page = "wealth";
/// Below this an account or a security yields so little that a missing yield is of no account.
constexpr int valueThatYields = 20'000;

FieldPath pathOf(int index, std::string_view field) {
    return FieldPath("securities", field).at(index);
}

/// Whether the number says that the account is kept abroad; without an IBAN it counts as Swiss.
bool isForeignAccount(const SecurityEntry& entry) {
    return looksLikeIban(entry.ibanOrValor) && !compactIban(entry.ibanOrValor).starts_with("CH");
}

/// Interest of Swiss accounts above the limit bears withholding tax. VStG Art. 5 Abs. 1 Bst. c
void checkWithholding(CheckContext& c, const SecurityEntry& entry, int index) {
    const Decimal& limit = c.stGallen->cantonalExtra.verrechnungssteuerFreigrenzeZins;
    if (entry.kind == AssetKind::konto && entry.incomeWithoutWithholding > limit
        && !isForeignAccount(entry)) {
        c.warning({itemId("zins-ohne-verrechnungssteuer", index), page,
                   "Zins ohne Verrechnungssteuer",
                   "Zinsen schweizerischer Konten über " + MoneyFormat::fr(limit)
                       + " unterliegen der Verrechnungssteuer. Bei " + called(entry, index)
                       + " gehört der Bruttozins wohl in die Spalte mit Verrechnungssteuer, damit "
                         "sie zurückerstattet wird.",
                   pathOf(index, "incomeWithoutWithholding")});
    }
}

void checkYield(CheckContext& c, const SecurityEntry& entry, int index) {
    const bool yields = entry.kind == AssetKind::konto || entry.kind == AssetKind::wertschrift;
    if (c.stGallen != nullptr && yields && entry.taxValue > valueThatYields
        && grossIncome(entry).isZero()) {
        c.info({itemId("ertrag-fehlt", index), page, "Kein Ertrag erfasst",
                called(entry, index) + " hat einen Wert von " + MoneyFormat::fr(entry.taxValue)
                    + ", aber keinen Ertrag. Auch Erträge thesaurierender Fonds sind steuerbar.",
                pathOf(index, "incomeWithWithholding")});
    }
    if (entry.taxValue.isZero() && grossIncome(entry) > 0) {
        c.info({itemId("ertrag-ohne-wert", index), page, "Ertrag ohne Wert",
                called(entry, index)
                    + " hat einen Ertrag, aber am 31. Dezember keinen Wert. Das "
                      "stimmt, wenn im Lauf des Jahres aufgelöst oder verkauft "
                      "wurde; sonst fehlt der Steuerwert.",
                pathOf(index, "taxValue")});
    }
}

void checkOwner(CheckContext& c, const SecurityEntry& entry, int index) {
    if (!belongsToHousehold(entry, c.taxCase)) {
        c.warning({itemId("wertschrift-nicht-gemeinsam", index), page, "Eintrag zählt nicht",
                   called(entry, index)
                       + " ist als Eigentum von Person 2 erfasst. Der Haushalt wird nicht "
                         "gemeinsam besteuert, "
                         "der Eintrag bleibt deshalb weg; bitte Eigentum oder Zivilstand prüfen.",
                   pathOf(index, "owner")});
    }
}

void checkAccountNumber(CheckContext& c, const SecurityEntry& entry, int index) {
    const auto fault = ibanFault(entry.ibanOrValor);
    if (looksLikeIban(entry.ibanOrValor) && fault) {
        c.warning({itemId("iban-pruefziffer", index), page, "IBAN stimmt nicht",
                   called(entry, index) + ": " + sentenceOn(*fault)
                       + " Bitte mit dem Kontoauszug vergleichen.",
                   pathOf(index, "ibanOrValor")});
    }
}

void checkCurrency(CheckContext& c, const SecurityEntry& entry, int index) {
    static constexpr std::array<std::string_view, 3> currencies{"EUR", "USD", "GBP"};
    const std::string text = entry.institution + " " + entry.description;
    const bool foreign = text.find("€") != std::string::npos || text.find('$') != std::string::npos
                         || std::ranges::any_of(currencies, [&](std::string_view currency) {
                                return hasWord(text, currency);
                            });
    if (foreign && (!entry.taxValue.isZero() || !grossIncome(entry).isZero())) {
        c.info({itemId("fremdwaehrung-umrechnen", index), page, "Fremdwährung",
                called(entry, index)
                    + " nennt eine fremde Währung. Einzutragen sind Franken, der "
                      "Wert zum Jahresendkurs der Kursliste der Eidgenössischen "
                      "Steuerverwaltung.",
                pathOf(index, "taxValue")});
    }
}

void checkCrypto(CheckContext& c, const SecurityEntry& entry, int index) {
    if (entry.kind == AssetKind::krypto && entry.taxValue.isZero()) {
        c.warning({itemId("krypto-ohne-wert", index), page, "Kryptowährung ohne Wert",
                   "Bei " + called(entry, index)
                       + " fehlt der Wert am 31. Dezember. Kryptowährungen sind zum Kurs am "
                         "Jahresende steuerbares Vermögen.",
                   pathOf(index, "taxValue")});
    }
}

/// The same account twice, or the same security twice at one institution.
void checkDuplicates(CheckContext& c) {
    std::map<std::pair<std::string, std::string>, int> first;
    forEachItem(c.taxCase.securities, [&](const SecurityEntry& entry, int index) {
        const std::string number = compactIban(entry.ibanOrValor);
        if (number.empty() || !belongsToHousehold(entry, c.taxCase)) {
            return;
        }
        const std::string where = looksLikeIban(number) ? "" : lowerAscii(entry.institution);
        const auto [known, isNew] = first.try_emplace({number, where}, index);
        if (!isNew) {
            c.warning({itemId("eintrag-doppelt", index), page, "Eintrag doppelt?",
                       called(entry, index) + " trägt dieselbe Nummer wie Eintrag "
                           + std::to_string(known->second + 1)
                           + " des Verzeichnisses. Falls es derselbe ist, bitte einen entfernen.",
                       pathOf(index, "ibanOrValor")});
        }
    });
}

void checkBusinessEntries(CheckContext& c) {
    const bool business = std::ranges::any_of(c.taxCase.securities, [&](const auto& entry) {
        return isBusinessAsset(entry) && belongsToHousehold(entry, c.taxCase);
    });
    if (c.taxCase.businessAssets.isZero() && business) {
        c.warning({"geschaeftsvermoegen-fehlt", page, "Geschäftsvermögen fehlt",
                   "Einträge mit Geschäftscode zählen nicht zum privaten Vermögen, das "
                   "Geschäftsvermögen ist aber 0. Bitte dort ihren Wert mit erfassen.",
                   FieldPath("businessAssets")});
    }
    const bool selfEmployed = std::ranges::any_of(
        c.adults, [](const Adult& adult) { return !adult.income.selfEmployment.isZero(); });
    if (c.taxCase.businessAssets.isZero() && !business && selfEmployed) {
        c.info(
            {"selbstaendig-ohne-geschaeftsvermoegen", page, "Kein Geschäftsvermögen",
             "Es ist Einkommen aus selbständiger Arbeit erfasst, aber kein Geschäftsvermögen. Das "
             "stimmt, wenn keine Einrichtung, Vorräte oder Guthaben zum Geschäft gehören.",
             FieldPath("businessAssets")});
    }
}

} // namespace

void checkSecurities(CheckContext& c) {
    forEachItem(c.taxCase.securities, [&](const SecurityEntry& entry, int index) {
        checkOwner(c, entry, index);
        if (!belongsToHousehold(entry, c.taxCase)) {
            return;
        }
        checkAccountNumber(c, entry, index);
        checkCurrency(c, entry, index);
        checkCrypto(c, entry, index);
        if (c.stGallen != nullptr) {
            checkWithholding(c, entry, index);
        }
        if (isPrivateAsset(entry, c.taxCase)) {
            checkYield(c, entry, index);
        }
    });
    checkDuplicates(c);
    checkBusinessEntries(c);
}

} // namespace taxcore::review
