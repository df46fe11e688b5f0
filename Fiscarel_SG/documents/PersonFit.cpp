#include "Fiscarel_SG/documents/PersonFit.h"

#include "Fiscarel_SG/documents/Likeness.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace fiscarel {

using namespace taxcore;

namespace {

// How well a name fits; the sum counts where it fits both adults.
constexpr int byBirthDate = 8;
constexpr int byFirstName = 4;
constexpr int byInitial = 2;
constexpr int byLastName = 1;

constexpr std::array<std::string_view, 20> titles{
    "herr",     "herrn",    "frau",    "familie", "fam",     "monsieur", "madame",
    "mme",      "mr",       "m",       "signor",  "signora", "sig",      "famille",
    "famiglia", "eheleute", "ehepaar", "dr",      "prof",    "und"};

bool contains(const auto& list, std::string_view word) {
    return std::ranges::find(list, word) != list.end();
}

/// What stands beside the last name and a title: the first name as the document writes it.
std::vector<std::string> firstNamesIn(const std::string& name, const Person& person) {
    std::vector<std::string> words = foldedTokens(name);
    const std::vector<std::string> last = foldedTokens(person.lastName);
    std::erase_if(words, [&](const std::string& word) {
        return contains(last, word) || contains(titles, word);
    });
    return words;
}

int fitOfName(const Person& person, const std::string& name) {
    const std::vector<std::string> own = foldedTokens(person.firstName);
    const std::vector<std::string> words = foldedTokens(name);
    const bool hasLast = isNamedIn(person.lastName, name);
    const auto isThere = [&](const std::string& word) { return contains(words, word); };
    // Of several first names a document may tell one alone.
    if (isNamedIn(person.firstName, name) || (hasLast && std::ranges::any_of(own, isThere))) {
        return byFirstName + (hasLast ? byLastName : 0);
    }
    if (!hasLast) {
        return 0;
    }
    const std::vector<std::string> told = firstNamesIn(name, person);
    if (told.empty() || own.empty()) {
        return byLastName;
    }
    const bool isInitial = told.front().size() == 1 && told.front().front() == own.front().front();
    return isInitial ? byInitial + byLastName : 0;
}

int fitOf(const Person& person, const ProposedRecord& record) {
    if (record.birthDate && person.birthDate) {
        return record.birthDate == person.birthDate ? byBirthDate : 0;
    }
    return fitOfName(person, record.personName);
}

bool isKnown(const Person& person, const ProposedRecord& record) {
    return !foldWords(person.firstName + " " + person.lastName).empty()
           || (record.birthDate && person.birthDate);
}

} // namespace

NamedAdult namedAdult(const TaxCase& taxCase, const ProposedRecord& record) {
    const auto adults = taxCase.persons();
    const auto knows = [&](const Person& person) { return isKnown(person, record); };
    const bool isDated = record.birthDate && std::ranges::any_of(adults, [](const Person& person) {
                             return person.birthDate.has_value();
                         });
    if (record.personName.empty() && !isDated) {
        return NamedAdult::none;
    }
    if (std::ranges::none_of(adults, knows)) {
        return NamedAdult::unknown;
    }
    const int first = fitOf(taxCase.person1, record);
    const int second = taxCase.isJoint() ? fitOf(taxCase.person2, record) : 0;
    if (first == 0 && second == 0) {
        return NamedAdult::nobody;
    }
    return first > second   ? NamedAdult::first
           : second > first ? NamedAdult::second
                            : NamedAdult::both;
}

bool namesStranger(const TaxCase& taxCase, const ProposedRecord& record) {
    return namedAdult(taxCase, record) == NamedAdult::nobody
           && std::ranges::none_of(taxCase.children, [&](const Child& child) {
                  return isNamedIn(child.firstName, record.personName);
              });
}

bool hasOtherLastName(const Person& person, const ProposedRecord& record) {
    const std::vector<std::string> first = foldedTokens(person.firstName);
    std::vector<std::string> words = firstNamesIn(record.personName, person);
    const auto told =
        std::erase_if(words, [&](const std::string& word) { return contains(first, word); });
    return told > 0 && !words.empty() && !foldWords(person.lastName).empty()
           && !isNamedIn(person.lastName, record.personName);
}

bool nameDifferentPeople(const ProposedRecord& one, const ProposedRecord& other) {
    if (one.birthDate && other.birthDate) {
        return one.birthDate != other.birthDate;
    }
    return !one.personName.empty() && !other.personName.empty()
           && !isNamedIn(one.personName, other.personName)
           && !isNamedIn(other.personName, one.personName);
}

} // namespace fiscarel
