#pragma once

#include "Fiscarel_SG/outputs/FormField.h"
#include "TaxCore/model/TaxCase.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::outputs {

/// Where a record stands in the case.
struct RecordPlace {
    std::string path; ///< "securities[3]"
    std::string key;  ///< the same with the identity: "securities[F3A9…]"
};

/// Puts the rows of forms one behind the other. Refers to the case, which must outlive it.
class FormWriter {
  public:
    explicit FormWriter(const taxcore::TaxCase& taxCase) : taxCase_(taxCase) {}

    const taxcore::TaxCase& taxCase() const noexcept { return taxCase_; }

    /// What follows stands on this form. A form without rows leaves no trace.
    void form(std::string title, int page, std::string ziffer = {});
    /// What follows is a part of it, for a person (0: the household) and with a Ziffer of its own
    /// where one is given.
    void part(std::string title, int person = 0, std::string ziffer = {});

    /// The fields of a record that are not empty.
    template <class R>
    void record(const R& record, const RecordPlace& place,
                const std::vector<FormField<R>>& fields) {
        for (const FormField<R>& field : fields) {
            TransferRow row;
            row.kind = field.kind;
            row.value = shownValue(field.read(record), field.kind);
            if (row.value.empty()) {
                continue;
            }
            row.key = joined(place.key, field.names.front());
            row.label = field.label;
            row.ziffer = field.ziffer;
            for (const std::string_view name : field.names) {
                row.paths.push_back(joined(place.path, name));
            }
            add(std::move(row));
        }
    }

    /// A part for each item of a list that counts, named by `title`.
    template <class R, class Title, class Counts>
    void list(const std::vector<R>& items, std::string_view path,
              const std::vector<FormField<R>>& fields, const Title& title, const Counts& counts,
              int person = 0) {
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (counts(items[i])) {
                part(title(items[i]), person);
                record(items[i], place(path, items[i].id, i), fields);
            }
        }
    }
    template <class R, class Title>
    void list(const std::vector<R>& items, std::string_view path,
              const std::vector<FormField<R>>& fields, const Title& title, int person = 0) {
        list(
            items, path, fields, title, [](const R&) { return true; }, person);
    }

    /// An amount that the calculation gives, side by side where the federation's is another one;
    /// nothing when both are 0.
    void amount(std::string key, std::string label, const taxcore::Decimal& canton,
                const taxcore::Decimal& federal, std::string code,
                ValueKind kind = ValueKind::francs);

    /// Places a row on the form and part that have begun; its own Ziffer stays.
    void add(TransferRow row);

    /// The rows written, each under a key of its own.
    std::vector<TransferRow> take() &&;

    static RecordPlace place(std::string_view list, const taxcore::Uuid& id, std::size_t index);
    /// A person's name; "Person 1" without one.
    static std::string nameOf(const taxcore::TaxCase& taxCase, int person);

  private:
    static std::string joined(const std::string& record, std::string_view field) {
        return record.empty() ? std::string(field) : record + "." + std::string(field);
    }

    const taxcore::TaxCase& taxCase_;
    std::vector<TransferRow> rows_;
    TransferRow place_; ///< form, page, Ziffer, person and part of what follows
    std::string formZiffer_;
};

} // namespace fiscarel::outputs
