#pragma once

#include "TaxCore/base/EnumText.h"
#include "TaxCore/result/Derivation.h"
#include "TaxCore/result/PerJurisdiction.h"
#include "TaxCore/result/Sums.h"
#include "TaxCore/result/TaxResult.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace taxcore {

/// What identifies a line of the return.
struct LineHead {
    std::string_view code; ///< without the person's number
    int person = 0;        ///< 1 or 2 for a line per person, else 0
    std::string_view ziffer;
    std::string_view label; ///< ending in a blank: the person's number follows
    std::string_view form = {};
};

/// What a section of the return is called and how its lines are treated.
struct SectionHead {
    std::string_view title = {};
    int page = 0;                       ///< of the official return
    Concerns concerns = Concerns::both; ///< whose tax its lines belong to
    bool keepsZeros = false;            ///< lines of amount 0 stand, too
};

/// Lays out the return: emits lines into sections and keeps the sums. Lines of amount 0 in both
/// jurisdictions are left out, except subtotals and totals and where a section keeps them. Shared
/// by all calculators.
template <class Recorder>
class LineBuilder {
  public:
    /// One line in the making. Its `why` takes the steps of the derivation; exactly one of the
    /// finishing operations emits the line and adds it to the sums.
    class Line {
      public:
        Line(LineBuilder& builder, const LineHead& head, std::string label)
            : builder_(builder), head_(head), label_(std::move(label)),
              why(builder.recorder_.draft(builder.head_.concerns)) {}

        const std::string& label() const noexcept { return label_; }

        /// Adds to the section's sum.
        void income(const Amounts& amounts, std::optional<std::string> note = {}) {
            if (emit(TaxLine::Kind::income, amounts, std::move(note))) {
                builder_.sum_ += amounts;
            }
        }
        /// Takes off the section's sum.
        void deduction(const Amounts& amounts, std::optional<std::string> note = {}) {
            if (emit(TaxLine::Kind::deduction, amounts, std::move(note))) {
                builder_.sum_ = builder_.sum_ - amounts;
            }
        }
        void subtotal(const Amounts& amounts) { emit(TaxLine::Kind::subtotal, amounts, {}); }
        void total(const Amounts& amounts) { emit(TaxLine::Kind::total, amounts, {}); }
        /// Stands for information, in no sum.
        void info(const Amounts& amounts, std::optional<std::string> note = {}) {
            emit(TaxLine::Kind::info, amounts, std::move(note));
        }

      private:
        bool emit(TaxLine::Kind kind, const Amounts& amounts, std::optional<std::string> note);

        LineBuilder& builder_;
        LineHead head_;
        std::string label_;

      public:
        [[no_unique_address]] typename Recorder::Draft why;
    };

    LineBuilder(std::vector<TaxSection>& sections, Recorder& recorder)
        : sections_(sections), recorder_(recorder) {}

    /// Opens a section and starts its sum at 0. A section that stays without lines vanishes with
    /// the next one or with `finish`.
    void section(const SectionHead& head) {
        finish();
        head_ = head;
        sections_.push_back({std::string(head.title), head.page, {}});
        sections_.back().lines.reserve(24);
        sum_ = {};
    }

    void finish() {
        if (!sections_.empty() && sections_.back().lines.empty()) {
            sections_.pop_back();
        }
        entered_.clear();
    }

    /// Begins a line.
    Line line(const LineHead& head) {
        std::string label(head.label);
        if (head.person > 0 && label.ends_with(' ')) {
            label += std::to_string(head.person);
        }
        return Line(*this, head, std::move(label));
    }

    /// Begins a line whose label is put together at run time.
    Line line(const LineHead& head, std::string label) {
        return Line(*this, head, std::move(label));
    }

    /// Incomes minus deductions since the section began.
    const Amounts& sum() const noexcept { return sum_; }

    /// The lines since the section began that make up its sum, as steps of a subtotal.
    void explainSum(Line& line) const {
        if constexpr (Recorder::enabled) {
            for (const Entered& entry : entered_) {
                line.why.line(entry.code, 0, entry.label, entry.amounts);
            }
            if (entered_.empty()) {
                line.why.fact("Keine Beträge eingetragen.");
            }
        }
    }

    Recorder& recorder() noexcept { return recorder_; }

  private:
    struct Entered {
        std::string code;
        std::string label;
        Amounts amounts; ///< negative for deductions
    };

    std::vector<TaxSection>& sections_;
    Recorder& recorder_;
    Amounts sum_;
    SectionHead head_;
    std::vector<Entered> entered_; ///< filled only while recording
};

template <class Recorder>
bool LineBuilder<Recorder>::Line::emit(TaxLine::Kind kind, const Amounts& amounts,
                                       std::optional<std::string> note) {
    const bool always = kind == TaxLine::Kind::subtotal || kind == TaxLine::Kind::total;
    const bool stands = always || builder_.head_.keepsZeros || !isZero(amounts);
    std::string code(head_.code);
    if (head_.person > 0) {
        code += static_cast<char>('0' + head_.person);
    }
    if constexpr (Recorder::enabled) {
        builder_.recorder_.keep(code, label_, std::move(why), amounts);
        if (!isZero(amounts)
            && (kind == TaxLine::Kind::income || kind == TaxLine::Kind::deduction)) {
            builder_.entered_.push_back(
                {code, label_, kind == TaxLine::Kind::income ? amounts : Amounts{} - amounts});
        }
    }
    if (!stands) {
        return false;
    }
    TaxLine& line = builder_.sections_.back().lines.emplace_back();
    line.code = std::move(code);
    line.ziffer = head_.ziffer;
    line.label = std::move(label_);
    line.canton = amounts.canton;
    if (amounts.federal != amounts.canton) {
        line.federal = amounts.federal;
    }
    line.kind = kind;
    line.note = std::move(note);
    if (!head_.form.empty()) {
        line.form = std::string(head_.form);
    }
    return true;
}

} // namespace taxcore
