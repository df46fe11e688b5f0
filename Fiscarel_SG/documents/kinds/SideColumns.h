#pragma once

#include "Fiscarel_SG/documents/kinds/AccountTable.h"

namespace fiscarel {

/// What two columns state that name both sides of an account and nothing else, beside interest:
/// "Credito" and "Debito", "Attivo" and "Passivo". One of them alone may name a loan, and beside a
/// balance they tell what was moved.
void addSides(const PageRows& page, AccountHeading& heading);

} // namespace fiscarel
