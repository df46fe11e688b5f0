#include "Fiscarel_SG/documents/kinds/Prose.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/BesideAmounts.h"
#include "Fiscarel_SG/documents/kinds/RowSums.h"
#include "Fiscarel_SG/documents/kinds/Sentences.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace fiscarel {

namespace {

Row part(const Row& row, std::size_t first, std::size_t end) {
    Row words;
    for (std::size_t i = first; i < std::min(end, row.words.size()); ++i) {
        words.words.push_back(row.words[i]);
    }
    return words;
}

/// Whether an amount is followed by what it is for: "CHF 340 für die Krippe".
bool isForWhatFollows(const Sentence& sentence, std::size_t which) {
    static constexpr std::array<std::string_view, 5> words{"fur", "pour", "per", "for", "an"};
    const std::size_t next = sentence.ends[which] + 1;
    return next < sentence.row.words.size()
           && std::ranges::find(words, sentence.row.words[next].folded) != words.end();
}

/// Where the words end that follow an amount: before the next one, or with the sentence that a
/// pronoun goes on from.
std::size_t endOfFollowing(const Sentence& sentence, std::size_t which) {
    const bool isLast = which + 1 == sentence.amounts.size();
    const std::size_t end = isLast ? sentence.row.words.size() : sentence.starts[which + 1];
    for (std::size_t i = sentence.ends[which] + 1; i < end; ++i) {
        if (endsSentence(sentence.row.words[i])) {
            return i + 1;
        }
    }
    return end;
}

/// Where the word ends that is joined to an amount before it: "CHF 1'027.45 auf Zinsen", "Fr.
/// 477.10 de primes", "4'739.40 d'intérêts"; the amount's own end where none is.
std::size_t endOfJoined(const Sentence& sentence, std::size_t which) {
    const auto& words = sentence.row.words;
    const std::size_t next = sentence.ends[which] + 1;
    if (next >= words.size() || endsSentence(words[next - 1])) {
        return next;
    }
    if (words[next].folded.starts_with("d ")) {
        return next + 1;
    }
    const bool isJoined = next + 1 < words.size() && joinsLabel(words[next]);
    return isJoined ? next + 2 : next;
}

/// The first and the last word of what brackets set apart around an amount; absent outside of any.
std::optional<std::pair<std::size_t, std::size_t>> asideAround(const Sentence& sentence,
                                                               std::size_t which) {
    const auto& words = sentence.row.words;
    const auto closes = [&](std::size_t at) {
        return words[at].text.find(')') != std::string::npos;
    };
    std::size_t first = sentence.starts[which];
    while (!words[first].text.starts_with('(')) {
        if (first == 0 || closes(first - 1)) {
            return std::nullopt;
        }
        --first;
    }
    std::size_t last = sentence.ends[which];
    while (last < words.size() && !closes(last)) {
        ++last;
    }
    return last == words.size() ? std::nullopt : std::optional(std::pair(first, last));
}

/// The words up to an amount without the brackets that stand between: "the pension (of which CHF
/// 450 in December) comes to CHF 9'450"; empty where none do.
Row aroundAside(const Sentence& sentence, std::size_t which) {
    const auto aside = which == 0 ? std::nullopt : asideAround(sentence, which - 1);
    if (!aside || aside->second >= sentence.starts[which]) {
        return {};
    }
    std::size_t before = which - 1; // the first amount within the brackets
    while (before > 0 && sentence.starts[before - 1] >= aside->first) {
        --before;
    }
    Row words = part(sentence.row, before == 0 ? 0 : sentence.ends[before - 1] + 1, aside->first);
    const Row rest = part(sentence.row, aside->second + 1, sentence.starts[which]);
    words.words.insert(words.words.end(), rest.words.begin(), rest.words.end());
    return words;
}

/// The words that say what an amount is: those behind the amount before, up to it; where several of
/// a sentence are followed by what they are for, those up to the next amount; the word joined to it
/// behind; at last all words of a sentence that has no other.
std::vector<Row> ownWords(const Sentence& sentence, std::size_t which) {
    const std::size_t count = sentence.amounts.size();
    std::size_t followed = 0;
    for (std::size_t i = 0; i < count; ++i) {
        followed += isForWhatFollows(sentence, i) ? 1U : 0U;
    }
    const bool isFollowed = followed >= 2 && isForWhatFollows(sentence, which);
    const bool isTaken = which > 0 && followed >= 2 && isForWhatFollows(sentence, which - 1);
    const std::size_t from = which == 0 ? 0
                             : isTaken  ? endOfFollowing(sentence, which - 1)
                                        : endOfJoined(sentence, which - 1);
    std::vector<Row> words;
    if (which > 0 && isPriceOfOne(sentence.row, sentence.ends[which - 1])) {
        // "the fee of CHF 8 an hour came to CHF 800": what one is the price of, the other is, too
        const std::size_t rest = sentence.ends[which - 1] + 3;
        Row own = part(sentence.row, which > 1 ? sentence.ends[which - 2] + 1 : 0,
                       sentence.starts[which - 1]);
        const Row more = part(sentence.row, rest, sentence.starts[which]);
        own.words.insert(own.words.end(), more.words.begin(), more.words.end());
        words.push_back(std::move(own));
    } else if (Row outside = aroundAside(sentence, which); !outside.words.empty()) {
        words.push_back(std::move(outside));
    } else if (from < sentence.starts[which]) {
        words.push_back(part(sentence.row, from, sentence.starts[which]));
    }
    if (isFollowed) {
        words.push_back(
            part(sentence.row, sentence.ends[which] + 1, endOfFollowing(sentence, which)));
    }
    const std::size_t joined = endOfJoined(sentence, which);
    if (joined > sentence.ends[which] + 1) {
        words.push_back(part(sentence.row, sentence.ends[which] + 1, joined));
    }
    if (count == 1) {
        words.push_back(sentence.row);
    }
    return words;
}

/// The last word before an amount that is no currency; empty when none stands there.
std::string_view wordBefore(const Sentence& sentence, std::size_t which) {
    std::size_t at = sentence.starts[which];
    while (at > 0 && isFrancs(sentence.row.words[at - 1].text)) {
        --at;
    }
    return at == 0 ? std::string_view() : std::string_view(sentence.row.words[at - 1].folded);
}

/// Whether an amount became the next one: "von 15'000 auf 16'200".
bool isChanged(const Sentence& sentence, std::size_t which) {
    static constexpr std::array<std::string_view, 4> from{"von", "de", "da", "from"};
    static constexpr std::array<std::string_view, 4> to{"auf", "a", "ad", "to"};
    if (which + 1 >= sentence.amounts.size()) {
        return false;
    }
    std::size_t between = 0;
    for (std::size_t i = sentence.ends[which] + 1; i < sentence.starts[which + 1]; ++i) {
        between += isFrancs(sentence.row.words[i].text) ? 0U : 1U;
    }
    return between == 1 && std::ranges::find(from, wordBefore(sentence, which)) != from.end()
           && std::ranges::find(to, wordBefore(sentence, which + 1)) != to.end();
}

/// The amount that counts of a sentence: not the price of one where it says what several come to,
/// and not what it was before.
std::size_t wholeOf(const Sentence& sentence, std::size_t which) {
    if (isChanged(sentence, which)) {
        return which + 1;
    }
    return sentence.products.of(sentence.amounts[which].value()).value_or(which);
}

/// The people a sentence names with the amount that follows each; empty for fewer than two, or an
/// amount of both.
std::vector<PersonAmount> peopleIn(const Sentence& sentence, const People& people) {
    std::vector<PersonAmount> found;
    const auto named = people.in(sentence.row);
    std::size_t from = 0; // behind the amount before
    for (std::size_t i = 0; i < sentence.amounts.size(); ++i) {
        for (const NamedPerson& person : named) {
            const bool isNew = std::ranges::none_of(
                found, [&](const PersonAmount& one) { return one.person.folded == person.folded; });
            if (!isNew || person.first < from || person.last >= sentence.starts[i]) {
                continue;
            }
            const bool isJoint =
                !found.empty() && found.back().found.row == sentence.amounts[i].row
                && found.back().found.amount.first == sentence.amounts[i].amount.first;
            if (isJoint) {
                return {}; // an amount of both
            }
            found.push_back({person, sentence.amounts[i]});
            found.back().found.label = person.name;
        }
        from = sentence.ends[i] + 1;
    }
    return found.size() >= 2 ? found : std::vector<PersonAmount>();
}

/// The person a sentence of one amount names, with it.
std::optional<PersonAmount> personIn(const Sentence& sentence, const People& people) {
    const auto named = people.in(sentence.row);
    if (named.size() != 1 || sentence.amounts.size() != 1) {
        return std::nullopt;
    }
    PersonAmount one{named.front(), sentence.amounts.front()};
    one.found.label = one.person.name;
    return one;
}

/// Finds amounts of sentences by what is said of them.
class ProseSearch {
  public:
    ProseSearch(const std::vector<RowRange>& ranges, const Wanted& wanted)
        : wanted_(wanted), sentences_(sentencesOf(ranges)) {
        for (const Sentence& sentence : sentences_) {
            for (std::size_t i = 0; i < sentence.amounts.size(); ++i) {
                sayings_.push_back(sayingOf(sentence, i));
            }
        }
    }

    /// Amounts whose meaning is said behind them, in the words of their clause.
    std::vector<FoundAmount> behind() const {
        std::vector<FoundAmount> found;
        for (const Sentence& sentence : sentences_) {
            for (std::size_t i = 0; i < sentence.amounts.size(); ++i) {
                const Row words = clauseBehind(sentence, i);
                const bool isRecognised = isFromRecognised(sentence, i);
                const bool isMeant =
                    !namesAny(words, wanted_.notMeant, isRecognised)
                    && !findLabel(words, wanted_.without, isRecognised)
                    && std::ranges::any_of(wanted_.meanings, [&](const Meaning& meaning) {
                           return findMeaning(words, meaning, isRecognised).has_value();
                       });
                if (isMeant) {
                    found.push_back(sentence.amounts[i]);
                    found.back().label = textBetween(words, 0, words.words.size() - 1);
                }
            }
        }
        return found;
    }

    std::vector<FoundAmount> run() const {
        for (const Label& label : wanted_.labels) {
            auto found =
                each([&](const Sentence&, const LabelFinder& own) { return own.find(label); });
            if (!found.empty()) {
                return found;
            }
        }
        for (const Meaning& meaning : wanted_.meanings) {
            const Sentence* known = nullptr;
            bool saysAll = false;
            auto found = each([&](const Sentence& sentence, const LabelFinder& own) {
                if (&sentence != known) {
                    known = &sentence;
                    saysAll = says(sentence, meaning);
                }
                return saysAll ? own.find(wordsFor(meaning.front())) : std::nullopt;
            });
            if (!found.empty()) {
                return found;
            }
        }
        return {};
    }

  private:
    /// An amount of a sentence with the words that may say what it is.
    struct Saying {
        const Sentence* sentence = nullptr;
        std::size_t which = 0;
        std::vector<Row> own;
    };

    Saying sayingOf(const Sentence& sentence, std::size_t which) const {
        const bool isRecognised = isFromRecognised(sentence, which);
        Saying saying{&sentence, which, {}};
        if (followsBound(sentence.row, sentence.starts[which])
            || (sentence.amounts.size() == 1 && saysLeftOut(sentence.row))) {
            return saying;
        }
        if (!isPriceOfOne(sentence.row, sentence.ends[which])
            || wholeOf(sentence, which) != which) {
            saying.own = ownWords(sentence, which);
        }
        std::erase_if(saying.own, [&](const Row& own) {
            return namesAny(own, wanted_.notMeant, isRecognised)
                   || findLabel(own, wanted_.without, isRecognised);
        });
        return saying;
    }

    /// The words behind an amount up to the next one, or to where a clause ends.
    static Row clauseBehind(const Sentence& sentence, std::size_t which) {
        const std::size_t first = sentence.ends[which] + 1;
        std::size_t end = endOfFollowing(sentence, which);
        for (std::size_t i = first; i < end; ++i) {
            const std::string& text = sentence.row.words[i].text;
            end = text.ends_with(';') || text.ends_with(',') ? i + 1 : end;
        }
        return part(sentence.row, first, end);
    }

    static bool isFromRecognised(const Sentence& sentence, std::size_t which) {
        return sentence.amounts[which].page->isRecognised;
    }

    static bool says(const Sentence& sentence, const Meaning& meaning) {
        const LabelFinder finder(sentence.row, isFromRecognised(sentence, 0));
        return std::ranges::all_of(
            meaning, [&](Concept meant) { return finder.find(wordsFor(meant)).has_value(); });
    }

    template <class Finder>
    std::vector<FoundAmount> each(const Finder& find) const {
        std::vector<FoundAmount> found;
        for (const Saying& saying : sayings_) {
            for (const Row& own : saying.own) {
                const LabelFinder finder(own, isFromRecognised(*saying.sentence, saying.which));
                if (const auto place = find(*saying.sentence, finder)) {
                    found.push_back(
                        saying.sentence->amounts[wholeOf(*saying.sentence, saying.which)]);
                    found.back().label = textBetween(own, place->first, place->last);
                    break;
                }
            }
        }
        return found;
    }

    const Wanted& wanted_;
    std::vector<Sentence> sentences_;
    std::vector<Saying> sayings_;
};

} // namespace

std::vector<FoundAmount> findInProse(const std::vector<RowRange>& ranges, const Wanted& wanted) {
    return ProseSearch(ranges, wanted).run();
}

std::vector<FoundAmount> findBehindInProse(const std::vector<RowRange>& ranges,
                                           const Wanted& wanted) {
    return ProseSearch(ranges, wanted).behind();
}

std::optional<SummedAmount> sumInProse(const std::vector<RowRange>& ranges, const Wanted& wanted) {
    for (const Sentence& sentence : sentencesOf(ranges)) {
        if (namesAny(sentence.row, wanted.alien, sentence.amounts[0].page->isRecognised)) {
            continue;
        }
        Decimal sum;
        std::vector<Decimal> parts;
        for (const FoundAmount& amount : sentence.amounts) {
            if (parts.size() >= 2 && amount.value() == sum) {
                return SummedAmount{amount,
                                    ProposalCheck{partsText("Beträge davor", parts, sum), true}};
            }
            sum = sum + amount.value();
            parts.push_back(amount.value());
        }
    }
    return std::nullopt;
}

std::vector<PersonAmount> findPeopleInProse(const DocumentRows& document, const Wanted& wanted) {
    const People people(document);
    std::vector<PersonAmount> each; // of sentences of their own
    bool areDistinct = true;
    for (const Sentence& sentence : sentencesOf(wholeDocument(document))) {
        const bool isRecognised = sentence.amounts.front().page->isRecognised;
        const bool isMeant = std::ranges::any_of(wanted.meanings, [&](const Meaning& meaning) {
            return findMeaning(sentence.row, meaning, isRecognised).has_value();
        });
        if (auto found = peopleIn(sentence, people); isMeant && !found.empty()) {
            return found;
        }
        auto one = isMeant && !namesAny(sentence.row, wanted.notMeant, isRecognised)
                           && !findLabel(sentence.row, wanted.without, isRecognised)
                           && !isPriceOfOne(sentence.row, sentence.ends.front())
                           && !followsBound(sentence.row, sentence.starts[0])
                           && !saysLeftOut(sentence.row)
                       ? personIn(sentence, people)
                       : std::nullopt;
        if (one) {
            areDistinct &= std::ranges::none_of(each, [&](const PersonAmount& other) {
                return other.person.folded == one->person.folded;
            });
            each.push_back(std::move(*one));
        }
    }
    return areDistinct && each.size() >= 2 ? each : std::vector<PersonAmount>();
}

} // namespace fiscarel
