#include "Fiscarel_SG/documents/payload/Mappers.h"

#include <algorithm>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

constexpr std::string_view socialElement = "AHV-ALV-NBUV-AVS-AC-AANP-Contribution";

/// One certificate of a payload with what is known of its place.
class CertificateMapper {
  public:
    CertificateMapper(pugi::xml_node root, pugi::xml_node certificate, const JoinedPayload& payload,
                      const SalaryForm* form, ProposalDraft& draft)
        : root_(root), certificate_(certificate), form_(form), draft_(draft),
          page_(payload.pages.front()) {}

    void propose(bool isPension) {
        const std::string company = employer();
        ProposedRecord record{.kind = isPension ? ProposedRecord::Kind::pension
                                                : ProposedRecord::Kind::salaryCertificate,
                              .title = isPension ? "Rentenbescheinigung" : "Lohnausweis",
                              .page = page_};
        if (!company.empty()) {
            record.title += ' ' + company;
        }
        const auto period = childOf(certificate_, "Period");
        const auto until = dayOf(textOf(period, "until"));
        if (until) {
            record.year = until->year();
        }
        tellPerson(record);
        record_ = draft_.addRecord(std::move(record));
        findNetCheck();
        if (isPension) {
            proposePension(company);
        } else {
            proposeSalary(company, period);
        }
    }

  private:
    std::string employer() const {
        const auto company = childOf(root_, "Company");
        const std::string name = attributeOf(company, "HR-RC-Name");
        return name.empty() ? attributeOf(company, "Person") : name;
    }

    void tellPerson(ProposedRecord& record) const {
        const auto person = childOf(root_, "PersonID");
        record.personName = attributeOf(person, "Firstname");
        if (const std::string last = attributeOf(person, "Lastname"); !last.empty()) {
            record.personName += record.personName.empty() ? last : ' ' + last;
        }
        record.socialSecurityNumber = textOf(person, "SV-AS-Nr");
        for (const char* name : {"DateOfBirth", "Birthday", "unknown"}) {
            if (!record.birthDate) {
                record.birthDate = dayOf(textOf(person, name));
            }
        }
        if (!record.birthDate && form_ != nullptr) {
            record.birthDate = form_->birthDate;
        }
    }

    std::optional<Decimal> amount(std::string_view element) const {
        return amountOf(textOf(certificate_, element));
    }

    void findNetCheck() {
        const auto fund = childOf(certificate_, "BVG-LPP-Contribution");
        const auto part = [](const std::optional<Decimal>& value) {
            return value.value_or(Decimal());
        };
        net_ = netSalaryCheck(amount("GrossIncome"),
                              {part(amount(socialElement)), part(amountOf(textOf(fund, "Regular"))),
                               part(amountOf(textOf(fund, "Purchase")))},
                              amount("NetIncome"));
    }

    /// The evidence of a value; with its printed place when the form has the box.
    Evidence evidence(const std::optional<Decimal>& value = std::nullopt,
                      SalaryBox box = SalaryBox::none) const {
        Evidence found{.witness = Witness::payload,
                       .confidence = Confidence::high,
                       .reason = "Aus dem Strichcode der Bescheinigung gelesen.",
                       .page = page_};
        if (value && form_ != nullptr && form_->boxes.contains(box)) {
            const RowAmount& printed = form_->boxes.at(box);
            found.checks.push_back(printedCheck(*value, printed.amount));
            found.page = form_->page->number;
            found.box = pageBox(printed.printed, *form_->page);
        }
        return found;
    }

    void addAmount(const char* field, const std::optional<Decimal>& value, SalaryBox box) {
        if (value) {
            Evidence found = evidence(value, box);
            if (net_ && box != SalaryBox::none) {
                found.checks.push_back(*net_);
            }
            draft_.add(record_, field, *value, std::move(found));
        }
    }

    void proposePension(const std::string& company) {
        const auto net = amount("NetIncome");
        const auto gross = amount("GrossIncome");
        if (const auto value = net ? net : gross) {
            Evidence found = evidence(value, net ? SalaryBox::net : SalaryBox::gross);
            if (net && gross && *net != *gross) {
                found.checks.push_back({"Vor Abzügen (Ziffer 8) steht " + shown(*gross)
                                            + ", danach (Ziffer 11) " + shown(*net)
                                            + "; übernommen wird, was bleibt",
                                        false});
            }
            draft_.add(record_, "amount", *value, std::move(found));
        }
        draft_.add(record_, "label", company, evidence());
    }

    void proposeSalary(const std::string& company, pugi::xml_node period) {
        const auto fund = childOf(certificate_, "BVG-LPP-Contribution");
        draft_.add(record_, "employer", company, evidence());
        draft_.add(record_, "periodFrom", dayOf(textOf(period, "from")), evidence());
        draft_.add(record_, "periodTo", dayOf(textOf(period, "until")), evidence());
        addAmount("grossSalary", amount("GrossIncome"), SalaryBox::gross);
        addAmount("socialContributions", amount(socialElement), SalaryBox::social);
        addAmount("pensionContributions", amountOf(textOf(fund, "Regular")),
                  SalaryBox::pensionFund);
        addAmount("pensionBuyIn", amountOf(textOf(fund, "Purchase")), SalaryBox::buyIn);
        addAmount("netSalaryOverride", amount("NetIncome"), SalaryBox::net);
        if (childOf(certificate_, "FreeTransport")) {
            draft_.addTrue(record_, "fieldF", evidence());
        }
        if (childOf(certificate_, "CanteenLunchCheck")) {
            draft_.addTrue(record_, "fieldG", evidence());
        }
        addExpenses();
        draft_.add(record_, "remarks", textOf(certificate_, "Remark"), evidence());
    }

    /// Boxes 13.1.2 and 13.2.3.
    void addExpenses() {
        const auto charges = childOf(certificate_, "Charges");
        Decimal sum;
        for (const char* part : {"Effective", "LumpSum"}) {
            const auto other = childOf(childOf(charges, part), "Other");
            sum = sum + amountOf(textOf(other, "Sum")).value_or(Decimal());
        }
        if (!sum.isZero()) {
            draft_.add(record_, "flatRateExpenses", sum, evidence());
        }
    }

    pugi::xml_node root_;
    pugi::xml_node certificate_;
    const SalaryForm* form_;
    ProposalDraft& draft_;
    int page_;
    int record_ = 0;
    std::optional<ProposalCheck> net_;
};

} // namespace

bool proposeCertificate(const JoinedPayload& payload, const std::vector<SalaryForm>& forms,
                        ProposalDraft& draft) {
    const auto unpacked = unpackFirstZipEntry(payload.bytes);
    const auto xml = unpacked ? PayloadXml::parse(*unpacked) : std::nullopt;
    if (!xml || localName(xml->root().name()) != "T") {
        return false;
    }
    const auto form = std::ranges::find_if(forms, [&](const SalaryForm& printed) {
        return std::ranges::find(payload.pages, printed.page->number) != payload.pages.end();
    });
    const SalaryForm* const printed = form == forms.end() ? nullptr : &*form;
    bool hasAny = false;
    for (const bool isPension : {false, true}) {
        forEachChild(xml->root(), isPension ? "A" : "S", [&](pugi::xml_node certificate) {
            hasAny = true;
            CertificateMapper(xml->root(), certificate, payload, printed, draft).propose(isPension);
        });
    }
    return hasAny;
}

} // namespace fiscarel
