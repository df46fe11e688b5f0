#include "tests/documents/corpus/layouts/Salary.h"

namespace corpus {
namespace {

void note(Draft& draft, const Salary& salary) {
    TruthRecord& record =
        draft.record(salary.pension ? "pension" : "salaryCertificate", salary.who);
    record.birthDate = salary.who.birth;
    record.year = salary.year;
    if (salary.pension) {
        record.amount("amount", salary.net);
        return;
    }
    record.amount("grossSalary", salary.gross)
        .amount("socialContributions", salary.social)
        .amount("pensionContributions", salary.regular)
        .amount("pensionBuyIn", salary.buyIn)
        .amount("netSalaryOverride", salary.net);
}

QString element(const char* name, Cents cents) {
    return cents == 0 ? QString() : QString("<%1>%2</%1>").arg(name, machineText(cents));
}

QString attribute(const QString& text) { return text.toHtmlEscaped(); }

} // namespace

void employerOf(Draft& draft) {
    draft.from(
        {draft.t("Hugentobler Metallbau AG", "Menuiserie du Jorat SA", "Officine Ceresio SA"),
         draft.t("Textilwerk Sitter AG", "Chocolaterie Belmont SA", "Tipografia Verzasca SA"),
         draft.t("Spitex Rheintal", "Clinique des Cèdres", "Casa Anziani Girasole")},
        {draft.t("Maschinenfabrik Necker AG", "Horlogerie du Doubs SA", "Cantine Malcantone SA"),
         draft.t("Schulgemeinde Oberegg", "Commune de Vernay", "Comune di Pianello"),
         draft.t("Logistik Walensee GmbH", "Transports Broye Sàrl", "Autotrasporti Moesa Sagl")});
}

Salary randomSalary(Draft& draft, bool pension, const Someone& who) {
    Random& random = draft.random;
    Salary salary;
    salary.who = who;
    salary.pension = pension;
    salary.year = draft.year;
    const bool whole = random.chance(60);
    const auto cents = [&](int low, int high) {
        return whole ? draft.francs(low, high) : draft.odd(low, high);
    };
    const bool partYear = random.chance(25);
    salary.from = QDate(draft.year, partYear ? random.between(2, 10) : 1, 1);
    salary.until = draft.yearEnd();
    if (pension) {
        salary.base = cents(14000, 52000);
        salary.gross = salary.net = salary.base;
        note(draft, salary);
        return salary;
    }
    salary.freeTransport = random.chance(25);
    salary.canteen = random.chance(35);
    salary.base = cents(38000, 128000);
    salary.car = random.chance(20) ? draft.francs(3600, 6000, 12) : 0;
    salary.bonus = random.chance(40) ? draft.francs(1000, 14000, 50) : 0;
    salary.shares = random.chance(10) ? cents(500, 4000) : 0;
    salary.other = random.chance(15) ? cents(600, 2400) : 0;
    salary.gross = salary.base + salary.car + salary.bonus + salary.shares + salary.other;
    const auto share = [&](int permille) {
        const Cents part = salary.gross * permille / 1000;
        return whole ? part / 100 * 100 : part / 5 * 5;
    };
    salary.social = share(random.between(61, 79));
    salary.regular = random.chance(92) ? share(random.between(45, 92)) : 0;
    salary.buyIn = random.chance(15) ? draft.francs(2000, 20000, 500) : 0;
    salary.net = salary.gross - salary.social - salary.regular - salary.buyIn;
    salary.atSource = random.chance(8) ? share(88) : 0;
    salary.expenses = random.chance(25) ? draft.francs(1200, 7200, 600) : 0;
    salary.education = random.chance(10) ? draft.francs(1200, 12500, 100) : 0;
    note(draft, salary);
    return salary;
}

QByteArray salaryXml(const Salary& salary, const Draft& draft) {
    const Issuer& firm = draft.issuer;
    const QString root = salary.pension ? "A" : "S";
    QString xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><T xmlns=\"http://www.swissdec.ch/"
                  "schema/sd/20200220/SalaryDeclarationTxAB\" SID=\"000\" SysV=\"001\">";
    xml += QString("<Company UID-BFS=\"%1\" HR-RC-Name=\"%2\" ZIP=\"%3\" Street=\"%4\" City=\"%5\" "
                   "Phone=\"%6\"/>")
               .arg(firm.uid, attribute(firm.name), firm.place.left(4), attribute(firm.street),
                    attribute(firm.place.mid(5)), firm.phone);
    xml +=
        QString("<PersonID Lastname=\"%1\" Firstname=\"%2\" ZIP=\"%3\" Street=\"%4\" City=\"%5\" "
                "Country=\"Schweiz\"><SV-AS-Nr>%6</SV-AS-Nr></PersonID>")
            .arg(attribute(salary.who.last), attribute(salary.who.first),
                 draft.family.place.left(4), attribute(draft.family.street),
                 attribute(draft.family.place.mid(5)), salary.who.number);
    xml += QString("<%1><DocID>1</DocID><Period><from>%2</from><until>%3</until></Period>")
               .arg(root, salary.from.toString(Qt::ISODate), salary.until.toString(Qt::ISODate));
    xml += salary.freeTransport ? "<FreeTransport/>" : "";
    xml += salary.canteen ? "<CanteenLunchCheck/>" : "";
    xml += element("Income", salary.base);
    if (salary.car != 0) {
        xml += "<FringeBenefits>" + element("CompanyCar", salary.car) + "</FringeBenefits>";
    }
    if (salary.bonus != 0) {
        xml += "<SporadicBenefits><Text>Bonus</Text>" + element("Sum", salary.bonus)
               + "</SporadicBenefits>";
    }
    xml += element("OwnershipRight", salary.shares);
    if (salary.other != 0) {
        xml += "<OtherBenefits><Text>Arbeitgeberanteil AHV/IV/EO/ALV</Text>"
               + element("Sum", salary.other) + "</OtherBenefits>";
    }
    xml += element("GrossIncome", salary.gross);
    xml += element("AHV-ALV-NBUV-AVS-AC-AANP-Contribution", salary.social);
    if (salary.regular + salary.buyIn != 0) {
        xml += "<BVG-LPP-Contribution>" + element("Regular", salary.regular)
               + element("Purchase", salary.buyIn) + "</BVG-LPP-Contribution>";
    }
    xml += element("NetIncome", salary.net);
    xml += element("DeductionAtSource", salary.atSource);
    if (salary.expenses + salary.education != 0) {
        const QString lump = element("Representation", salary.expenses);
        xml += "<Charges>" + (lump.isEmpty() ? lump : "<LumpSum>" + lump + "</LumpSum>")
               + element("Education", salary.education) + "</Charges>";
    }
    return (xml + "</" + root + "></T>").toUtf8();
}

} // namespace corpus
