#pragma once

#include <QString>
#include <functional>
#include <vector>

namespace corpus {

/// What the names and the functions of a sum stand for.
struct Meaning {
    std::function<qint64(const QString& name)> name;
    std::function<qint64(const QString& function, const std::vector<qint64>& arguments)> call;
};

/// The value of a sum such as "days * (rate + 5) / 10"; whole numbers, division cuts off. A
/// comparison is 1 or 0.
qint64 computed(const QString& text, const Meaning& meaning);

} // namespace corpus
