#pragma once

#include "Fiscarel_SG/documents/Proposal.h"
#include "Fiscarel_SG/forms/Field.h"

#include <QString>
#include <optional>
#include <string>

namespace fiscarel::pages {

// What is proposed, in the words of the sheet, and as values of the fields.

/// The text of a proposal as a value of a field; absent when it is none.
std::optional<forms::Value> fieldValue(const forms::BoundField& field, const std::string& text);
/// And back; empty for what is absent.
std::string proposalText(const forms::Value& value);

/// "✓ sicher", with a sign of its own for each confidence.
QString signOf(Proposal::Confidence confidence);
/// The role of that sign.
const char* roleOf(Proposal::Confidence confidence);
/// How a value is known, why it is trusted and by what it was tested, in sentences.
QString evidenceOf(const Proposal& proposal);
/// A text in which the digits of IBANs can be compared: in groups of four.
QString withGroupedIbans(const std::string& text);
/// A label whose long compound words may be broken between their parts.
QString breakable(QString label);
/// What a value failed at, as one warning; empty when it failed at nothing.
QString warningOf(const Proposal& proposal);
/// Whether a value may be taken over without somebody having looked at it: it is not unsure, or has
/// passed all it was tested by.
bool isTrusted(const Proposal& proposal);

} // namespace fiscarel::pages
