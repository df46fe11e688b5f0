#include "Fiscarel_SG/documents/ScanResult.h"
#include "TaxCore/base/JsonReader.h"
#include "TaxCore/base/JsonWriter.h"

namespace taxcore {

template tl::expected<fiscarel::ScanResult, JsonError>
    fromJson<fiscarel::ScanResult>(std::string_view, JsonGaps);
template std::string toJson<fiscarel::ScanResult>(const fiscarel::ScanResult&, JsonStyle);

} // namespace taxcore
