#pragma once

#include "tests/documents/corpus/kit/Draft.h"

namespace corpus {

struct QrBill {
    Cents amount = 0; ///< 0: the payer fills it in
    QString message;
    QString information;    ///< "//S1/…", or empty
    bool structured = true; ///< addresses of type S, else K
    bool crLf = true;
};

/// Receipt and payment part in the lower 105 mm of the last page.
void putQrBill(Draft& draft, const QrBill& bill);

} // namespace corpus
