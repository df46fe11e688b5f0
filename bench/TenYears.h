#pragma once

#include "Fiscarel_SG/store/PersistedState.h"
#include "TaxCore/demo/DemoData.h"

#include <string>

namespace fiscarel::bench {

/// The state of a household that has used the program for ten years: 2,000 documents with 5 KB of
/// recognised text each.
inline const PersistedState& tenYears() {
    static const PersistedState state = [] {
        PersistedState made;
        for (int year = 2017; year <= 2026; ++year) {
            made.cases[year] = taxcore::DemoData::family(year);
        }
        std::string text;
        while (text.size() < 5'000) {
            text += "Lohnausweis für das Jahr 2025\n8 Bruttolohn total 82’400.00\n";
        }
        for (int i = 0; i < 2'000; ++i) {
            StoredDocument& document = made.documents.emplace_back();
            document.year = 2017 + i % 10;
            document.title = "Beleg " + std::to_string(i);
            document.fileName = document.id.toString() + "-beleg.pdf";
            document.importedAt = {1'770'000'000 + i};
            document.recognizedText = text;
            document.amount = i;
        }
        return made;
    }();
    return state;
}

} // namespace fiscarel::bench
