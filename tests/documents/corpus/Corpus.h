#pragma once

#include "tests/documents/corpus/layouts/Layout.h"

namespace corpus {

/// A document to be made: which layout, in which language and look, the how-manyeth.
struct Order {
    Layout layout;
    QString language;
    QString look; ///< "clean", "scan" or "photo"
    int number = 1;

    QString name() const;
};

/// What is to be made; empty filters let everything through.
struct Selection {
    bool held = false;
    int count = 3; ///< documents per layout, language and look
    QStringList groups;
    QStringList looks;
};

std::vector<Order> ordersOf(const Selection& selection);

/// Draws it; the same seed and order give the same paper and truth.
Draft drawn(const Order& order, quint64 seed);

/// Writes the file in its look; returns the name without folder.
QString writeLook(const Draft& draft, const Order& order, quint64 seed, const QString& folder);

} // namespace corpus
