#include "Fiscarel_SG/documents/kinds/SalaryRun.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/SalaryWords.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <vector>

namespace fiscarel {

namespace {

using enum Concept;

/// What is taken off between a gross and a net wage, row by row.
class Deductions {
  public:
    Deductions(const FoundAmount& gross, const FoundAmount& net)
        : page_(*gross.page), isRecognised_(page_.isRecognised) {
        for (std::size_t at = gross.row; at <= net.row; ++at) {
            const Row& row = page_.rows[at];
            if (isSentence(row)) {
                takeSentence(at, at == gross.row ? gross.amount.last + 1 : 0,
                             at == net.row ? net.amount.first : row.words.size());
                continue;
            }
            tail_.clear();
            static const Labels ofWhich{"davon", "dont", "di cui", "of which"};
            const auto part = findLabel(row, ofWhich, isRecognised_);
            const bool isInside = at != gross.row && at != net.row && !(part && part->first == 0);
            const RowAmount* amount = isInside ? lastOrNewest(page_, at) : nullptr;
            if (amount != nullptr && amount->amount.isFirm()) {
                take(row, *amount);
            }
        }
    }

    Decimal sum() const {
        Decimal all;
        for (const Part& part : parts_) {
            all = all + part.amount.amount.value;
        }
        return all;
    }

    /// Interest less withholding tax leaves a net amount too.
    bool areOfWage() const {
        return std::ranges::any_of(parts_, [](const Part& part) { return part.box.has_value(); });
    }

    /// Puts the contributions to their boxes, those of a box together. What else is kept back
    /// belongs to the net wage.
    void fill(SalaryForm& form) const {
        const Decimal gross = form.boxes.at(SalaryBox::gross).amount.value;
        Decimal untold;
        for (const Part& part : parts_) {
            const Decimal& value = part.amount.amount.value;
            form.isGuess |= !part.isSure;
            if (part.isKept) {
                Decimal& net = form.boxes.at(SalaryBox::net).amount.value;
                net = net + value;
                continue;
            }
            const bool isTold = part.box && (!part.isRisk || value * 100 < gross * mostOfRisk);
            untold = untold + (isTold ? Decimal() : value);
            const auto [box, isNew] =
                form.boxes.emplace(part.box.value_or(SalaryBox::social), part.amount);
            if (!isNew) {
                box->second.amount.value = box->second.amount.value + value;
            }
        }
        withhold(form, untold);
    }

  private:
    static constexpr int mostOfRisk = 4;  ///< per cent of a wage that insures one risk
    static constexpr int leastOfFund = 2; ///< that the pension fund takes

    struct Part {
        RowAmount amount;
        std::optional<SalaryBox> box = {}; ///< that its words name
        bool isKept = false;               ///< it is no contribution, by its words
        bool isRisk = false;               ///< they name what it insures alone
        bool isMixed = false;              ///< some of it is none
        bool isSure = false;               ///< its words can mean nothing else
    };

    /// Leaves out what may hold more than contributions. What no words name may be of the pension
    /// fund, or none, where it is more than small insurances take: two per cent.
    void withhold(SalaryForm& form, const Decimal& untold) const {
        if (untold * 100 >= form.boxes.at(SalaryBox::gross).amount.value * leastOfFund) {
            form.boxes.erase(SalaryBox::social);
            form.boxes.erase(SalaryBox::net);
        }
        for (const Part& part : parts_) {
            if (part.isMixed) {
                form.boxes.erase(part.box.value_or(SalaryBox::social));
                form.boxes.erase(SalaryBox::net);
            }
        }
    }

    /// Whether a row is a line of sentences, or goes on with the one before.
    bool isSentence(const Row& row) const {
        constexpr std::size_t fewest = 4; // words, where it has no amount
        const bool isLine = cellsOf(row).size() == 1
                            && (hasFirmAmount(row) ? !tail_.empty() : row.words.size() >= fewest);
        return isLine || isProse(row, isRecognised_);
    }

    /// The amounts of a line of sentences, each told by the words before it; those behind the last
    /// one go on in the next line.
    void takeSentence(std::size_t at, std::size_t first, std::size_t end) {
        const Row& row = page_.rows[at];
        for (const RowAmount& amount : row.amounts) {
            if (amount.first < first || amount.last >= end || !amount.amount.isFirm()) {
                continue;
            }
            addWords(row, first, amount.first);
            Row words;
            words.words = std::exchange(tail_, {});
            take(words, amount);
            first = amount.last + 1;
        }
        addWords(row, first, end);
    }

    void addWords(const Row& row, std::size_t first, std::size_t end) {
        for (std::size_t i = first; i < std::min(end, row.words.size()); ++i) {
            tail_.push_back(row.words[i]);
            if (endsSentence(row, i)) {
                tail_.clear();
            }
        }
    }

    void take(const Row& words, RowAmount amount) {
        amount.amount.value = amount.amount.value.abs();
        Part part{.amount = amount};
        const bool isState = findLabel(words, firstPillarWords(), isRecognised_).has_value();
        for (const std::size_t box : {2U, 4U, 3U}) { // buy-in, pension fund, social insurances
            if ((box == 3 && isState) || (!isState && names(words, boxWords()[box]))) {
                part.box = boxWords()[box].box;
                part.isSure = true;
                break;
            }
        }
        part.isRisk = !part.box && findLabel(words, riskWords(), isRecognised_);
        if (isKeptBack(words, isRecognised_)) {
            part.isMixed = part.box && isFirm(words, *part.box);
            part.isKept = !part.isMixed;
            part.isSure = part.isKept && !part.box && !part.isRisk;
        } else if (part.isRisk) {
            part.box = SalaryBox::social;
        }
        if (!isSubtotal(part)) {
            parts_.push_back(part);
        }
    }

    /// Whether words name a box by more than what only suggests it between two wages.
    bool isFirm(const Row& words, SalaryBox box) const {
        const auto meant = box == SalaryBox::social        ? Concept::social
                           : box == SalaryBox::pensionFund ? Concept::occupational
                                                           : Concept::buyIn;
        return namesAny(words, {meant}, isRecognised_);
    }

    bool names(const Row& words, const BoxWords& box) const {
        return findLabel(words, box.vague, isRecognised_)
               || findLabel(words, box.between, isRecognised_)
               || findMeaning(words, box.wanted.meanings.front(), isRecognised_)
               || findMeaning(words, box.wanted.meanings.back(), isRecognised_)
               || (box.box == SalaryBox::pensionFund
                   && namesAny(words, {occupational}, isRecognised_));
    }

    static bool isTold(const Part& part) { return part.box || part.isKept; }

    /// Whether an amount adds up those before it. Where its words say what they are and their own
    /// do not, it stands for them.
    bool isSubtotal(const Part& whole) {
        Decimal sum;
        bool areTold = true;
        for (std::size_t first = parts_.size(); first-- > 0;) {
            sum = sum + parts_[first].amount.amount.value;
            areTold &= isTold(parts_[first]);
            if (parts_.size() - first >= 2 && sum == whole.amount.amount.value) {
                if (!areTold && isTold(whole)) {
                    parts_.resize(first);
                    return false;
                }
                return true;
            }
        }
        return false;
    }

    const PageRows& page_;
    bool isRecognised_ = false;
    std::vector<Part> parts_;
    std::vector<RowWord> tail_; ///< what a sentence has told since its last amount
};

} // namespace

std::optional<SalaryForm> readSalaryRun(const FoundAmount& gross, const FoundAmount& net) {
    if (gross.page != net.page || net.row < gross.row
        || (net.row == gross.row && net.amount.first <= gross.amount.last)) {
        return std::nullopt;
    }
    if (gross.value() <= 0 || net.value() <= 0) { // a cancelled wage
        return std::nullopt;
    }
    const Deductions deductions(gross, net);
    if (!deductions.areOfWage() || deductions.sum() < 1
        || gross.value() - deductions.sum() != net.value()) {
        return std::nullopt;
    }
    SalaryForm form{.page = gross.page};
    form.boxes[SalaryBox::gross] = gross.amount;
    form.boxes[SalaryBox::net] = net.amount;
    deductions.fill(form);
    return form;
}

} // namespace fiscarel
