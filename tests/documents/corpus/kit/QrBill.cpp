#include "tests/documents/corpus/kit/QrBill.h"

#include "tests/documents/corpus/kit/Symbols.h"

namespace corpus {
namespace {

QStringList addressLines(const QString& name, const QString& street, const QString& place,
                         bool structured) {
    if (!structured) {
        return {"K", name, street, place, "", "", "CH"};
    }
    const qsizetype blank = street.lastIndexOf(' ');
    return {"S",          name, street.left(blank), street.mid(blank + 1), place.left(4),
            place.mid(5), "CH"};
}

QString payloadOf(const Draft& draft, const QrBill& bill, const QString& iban,
                  const QString& reference) {
    QStringList lines{"SPC", "0200", "1", QString(iban).remove(' ')};
    lines +=
        addressLines(draft.issuer.name, draft.issuer.street, draft.issuer.place, bill.structured);
    lines += QStringList{"", "", "", "", "", "", ""};
    lines += QStringList{bill.amount == 0 ? QString() : machineText(bill.amount), "CHF"};
    lines += addressLines(draft.family.one.name(), draft.family.street, draft.family.place,
                          bill.structured);
    lines += QStringList{reference.isEmpty() ? "NON" : "QRR", reference, bill.message, "EPD"};
    if (!bill.information.isEmpty()) {
        lines += bill.information;
    }
    return lines.join(bill.crLf ? "\r\n" : "\n");
}

QString grouped(QString reference) {
    for (qsizetype at = reference.size() - 5; at > 0; at -= 5) {
        reference.insert(at, ' ');
    }
    return reference;
}

} // namespace

void putQrBill(Draft& draft, const QrBill& bill) {
    Paper& p = draft.paper;
    draft.hasFoot = true;
    QString iban = randomIban(draft.random);
    const bool withReference = draft.random.chance(75);
    if (withReference) {
        iban.replace(5, 4, "3" + iban.mid(6, 3)); // an institution of the payment slips' range
    }
    const QString reference = withReference ? randomReference(draft.random) : QString();
    p.line(0, 192, 210, 192);
    p.line(62, 192, 62, 297);
    const Type head{11, true};
    const Type label{6, true};
    const Type text{8};
    AmountStyle style{" "};
    const QString amount = bill.amount == 0 ? QString() : style.plain(bill.amount);
    const QStringList creditor{iban, draft.issuer.name, draft.issuer.street, draft.issuer.place};
    const QStringList debtor{draft.family.one.name(), draft.family.street, draft.family.place};
    p.put(5, 201, draft.t("Empfangsschein", "Récépissé", "Ricevuta"), head);
    p.put(67, 201, draft.t("Zahlteil", "Section paiement", "Sezione pagamento"), head);
    for (const double x : {5.0, 118.0}) {
        double y = x < 50 ? 208 : 200;
        const auto block = [&](const QString& title, const QStringList& lines) {
            p.put(x, y, title, label);
            for (const QString& line : lines) {
                y += 3.6;
                p.put(x, y, line, text);
            }
            y += 6;
        };
        block(draft.t("Konto / Zahlbar an", "Compte / Payable à", "Conto / Pagabile a"), creditor);
        if (withReference) {
            block(draft.t("Referenz", "Référence", "Riferimento"), {grouped(reference)});
        }
        if (x > 50) {
            block(draft.t("Zusätzliche Informationen", "Informations supplémentaires",
                          "Informazioni supplementari"),
                  {bill.message});
        }
        block(draft.t("Zahlbar durch", "Payable par", "Pagabile da"), debtor);
    }
    for (const double x : {5.0, 67.0}) {
        p.put(x, 265, draft.t("Währung", "Monnaie", "Valuta"), label);
        p.put(x, 270, "CHF", {9});
        p.put(x + 15, 265, draft.t("Betrag", "Montant", "Importo"), label);
        p.put(x + 15, 270, amount, {9});
    }
    const Symbol code = qrCode(payloadOf(draft, bill, iban, reference));
    const double module = 46 / code.width;
    code.put(p, 67, 209, module);
    p.fill(67 + 19.5, 209 + 19.5, 7, 7, Qt::white);
    p.fill(67 + 20, 209 + 20, 6, 6);
    p.fill(67 + 22.4, 209 + 21, 1.2, 4, Qt::white);
    p.fill(67 + 21, 209 + 22.4, 4, 1.2, Qt::white);
}

} // namespace corpus
