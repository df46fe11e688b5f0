#include "tests/documents/corpus/measure/Score.h"

#include <algorithm>

namespace corpus {
namespace {

constexpr int nobody = -1;

bool sameText(const QString& wanted, const QString& given) {
    const auto bare = [](QString text) {
        return text.toCaseFolded().remove(' ').remove(QChar(0x00a0));
    };
    const QStringList choices = wanted.split(" | ");
    return std::any_of(choices.begin(), choices.end(),
                       [&](const QString& choice) { return bare(choice) == bare(given); });
}

bool equals(const QString& field, const QString& wanted, const QString& given) {
    if (isAmountField(field)) {
        const auto cents = centsOf(given);
        return cents && cents == centsOf(wanted);
    }
    return sameText(wanted, given);
}

/// Of a kind of which the return has one for everybody or for a person, so that several records
/// of the answer may speak of the same.
bool isSingle(const QString& kind) {
    return kind == "householdDeductions" || kind == "personDeductions" || kind == "personIncome";
}

int likeness(const TruthRecord& truth, const AnsweredRecord& answer) {
    int points = 0;
    for (const ProposedValue& value : answer.values) {
        const auto wanted = truth.values.find(value.field);
        if (wanted != truth.values.end() && equals(value.field, *wanted, value.value)) {
            points += isAmountField(value.field) ? 10 : 3;
        }
    }
    if (!truth.personName.isEmpty() && sameText(truth.personName, answer.personName)) {
        points += 1;
    }
    return points;
}

struct Pair {
    int points = 0;
    int truth = 0;
    int answer = 0;
};

/// For every record of the answer the record of the truth it stands for, or nobody: the most alike
/// first, what is left of a kind in order.
std::vector<int> matched(const std::vector<TruthRecord>& truths,
                         const std::vector<AnsweredRecord>& answers) {
    std::vector<Pair> pairs;
    for (size_t a = 0; a < answers.size(); ++a) {
        for (size_t t = 0; t < truths.size(); ++t) {
            if (truths[t].kind == answers[a].kind) {
                pairs.push_back(
                    {likeness(truths[t], answers[a]), static_cast<int>(t), static_cast<int>(a)});
            }
        }
    }
    std::stable_sort(pairs.begin(), pairs.end(),
                     [](const Pair& one, const Pair& two) { return one.points > two.points; });
    std::vector<int> match(answers.size(), nobody);
    std::vector<bool> taken(truths.size(), false);
    for (const Pair& pair : pairs) {
        const auto truth = static_cast<size_t>(pair.truth);
        int& place = match[static_cast<size_t>(pair.answer)];
        if (place == nobody && (!taken[truth] || isSingle(truths[truth].kind))) {
            place = pair.truth;
            taken[truth] = true;
        }
    }
    return match;
}

int likest(const std::vector<TruthRecord>& list, const AnsweredRecord& record) {
    int points = 0;
    for (const TruthRecord& one : list) {
        points = std::max(points, one.kind == record.kind ? likeness(one, record) : 0);
    }
    return points;
}

bool isAccepted(const Truth& truth, const AnsweredRecord& record) {
    const int points = likest(truth.accepted, record);
    return points >= 10 && points > likest(truth.records, record);
}

/// That all the record says is said by one that is neither demanded nor wrong.
bool mayStand(const Truth& truth, const AnsweredRecord& record) {
    return std::any_of(
        truth.accepted.begin(), truth.accepted.end(), [&](const TruthRecord& accepted) {
            return accepted.kind == record.kind
                   && std::all_of(record.values.begin(), record.values.end(),
                                  [&](const ProposedValue& value) {
                                      const auto said = accepted.values.find(value.field);
                                      return !isAmountField(value.field)
                                             || (said != accepted.values.end()
                                                 && equals(value.field, *said, value.value));
                                  });
        });
}

class Comparison {
  public:
    Comparison(const Truth& truth, const Answer& answer) : truth_(truth) {
        // A total that may stand there takes no place of a record that is demanded.
        for (const AnsweredRecord& record : answer.records) {
            if (!isAccepted(truth, record)) {
                kept_.push_back(record);
            }
        }
        match_ = matched(truth.records, kept_);
    }

    void run(Score& score) {
        for (size_t i = 0; i < truth_.records.size(); ++i) {
            wanted(score, static_cast<int>(i));
        }
        for (size_t i = 0; i < kept_.size(); ++i) {
            if (match_[i] == nobody && mayStand(truth_, kept_[i])) {
                continue; // the total of one account is that account's, said twice
            }
            for (const ProposedValue& value : kept_[i].values) {
                given(score, value, match_[i]);
            }
        }
    }

  private:
    void wanted(Score& score, int index) {
        const TruthRecord& record = truth_.records[static_cast<size_t>(index)];
        for (auto it = record.values.begin(); it != record.values.end(); ++it) {
            QStringList seen;
            const bool found = holds(index, it.key(), it.value(), seen);
            if (!isAmountField(it.key())) {
                ++score.textsWanted;
                score.textsRight += found ? 1 : 0;
                continue;
            }
            ++score.wanted;
            score.right += found ? 1 : 0;
            if (!found) {
                score.misses += QString("%1.%2: wanted %3, got %4")
                                    .arg(record.kind, it.key(), it.value(),
                                         seen.isEmpty() ? "nothing" : seen.join(", "));
            }
        }
    }

    bool holds(int index, const QString& field, const QString& wanted, QStringList& seen) const {
        for (size_t i = 0; i < kept_.size(); ++i) {
            if (match_[i] != index) {
                continue;
            }
            for (const ProposedValue& value : kept_[i].values) {
                if (value.field != field) {
                    continue;
                }
                if (equals(field, wanted, value.value)) {
                    return true;
                }
                seen += value.value;
            }
        }
        return false;
    }

    void given(Score& score, const ProposedValue& value, int index) const {
        if (!isAmountField(value.field)) {
            return;
        }
        const auto trust = static_cast<size_t>(value.trust);
        auto& witness = score.byWitness[value.witness];
        const TruthRecord* record =
            index == nobody ? nullptr : &truth_.records[static_cast<size_t>(index)];
        if (record != nullptr && record->values.contains(value.field)) {
            const bool right = equals(value.field, record->values[value.field], value.value);
            ++(right ? witness.first : witness.second);
            score.wrong[trust] += right ? 0 : 1;
            return;
        }
        if (centsOf(value.value) == Cents{0}) {
            return;
        }
        ++witness.second;
        ++score.phantom[trust];
        static const char* const names[] = {"high", "medium", "low"};
        const auto cents = centsOf(value.value);
        const bool printed = cents && truth_.forbidden.contains(machineText(*cents));
        score.misses += QString("phantom %1 %2 (%3, %4)%5")
                            .arg(value.field, value.value, names[trust], value.witness,
                                 printed ? ", printed for something else" : "");
    }

    const Truth& truth_;
    std::vector<AnsweredRecord> kept_;
    std::vector<int> match_;
};

bool kindFits(const Truth& truth, const QString& kind) {
    return kind == truth.kind || truth.alsoKinds.contains(kind);
}

} // namespace

Score& Score::operator+=(const Score& other) {
    files += other.files;
    pages += other.pages;
    unanswered += other.unanswered;
    wanted += other.wanted;
    right += other.right;
    for (size_t i = 0; i < wrong.size(); ++i) {
        wrong[i] += other.wrong[i];
        phantom[i] += other.phantom[i];
    }
    textsWanted += other.textsWanted;
    textsRight += other.textsRight;
    kindRight += other.kindRight;
    literalRight += other.literalRight;
    seconds += other.seconds;
    for (auto it = other.byWitness.begin(); it != other.byWitness.end(); ++it) {
        auto& sum = byWitness[it.key()];
        sum.first += it.value().first;
        sum.second += it.value().second;
    }
    misses += other.misses;
    return *this;
}

Score scored(const Truth& truth, const std::optional<Answer>& answer) {
    Score score;
    score.files = 1;
    score.pages = truth.pages;
    if (!answer) {
        score.unanswered = 1;
        score.misses += "no answer";
    }
    const Answer given = answer.value_or(Answer{});
    Comparison(truth, given).run(score);
    const QString kind = given.proposedKind.isEmpty() ? given.literalKind : given.proposedKind;
    score.kindRight = kindFits(truth, kind) ? 1 : 0;
    score.literalRight = kindFits(truth, given.literalKind) ? 1 : 0;
    if (score.kindRight == 0) {
        score.misses += QString("kind: wanted %1, got %2").arg(truth.kind, kind);
    }
    return score;
}

} // namespace corpus
