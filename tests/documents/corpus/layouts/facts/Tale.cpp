#include "tests/documents/corpus/layouts/facts/Tale.h"

#include "tests/documents/corpus/layouts/facts/Teller.h"

#include <stdexcept>

namespace corpus {
namespace {

const std::map<QString, QString>& allTales() {
    static const std::map<QString, QString> tales = [] {
        std::map<QString, QString> byName;
        for (const auto& list :
             {accountTales(), securityTales(), wageTales(), benefitTales(), pensionTales(),
              pillarTales(), policyTales(), premiumTales(), careTales(), billTales(), courseTales(),
              giftTales(), propertyTales(), letterTales()}) {
            for (const Tale& tale : list) {
                if (!byName.emplace(tale.name, QString::fromUtf8(tale.commands)).second) {
                    throw std::runtime_error(std::string("two tales of ") + tale.name);
                }
            }
        }
        return byName;
    }();
    return tales;
}

} // namespace

QString taleOf(const QString& name) {
    const auto found = allTales().find(name);
    if (found == allTales().end()) {
        throw std::runtime_error("no tale " + name.toStdString());
    }
    return found->second;
}

Facts told(Draft& draft, const QString& tale) { return Teller(draft).tell(tale); }

} // namespace corpus
