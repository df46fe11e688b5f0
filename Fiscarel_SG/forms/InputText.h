#pragma once
#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"
#include <tl/expected.hpp>
#include <string>
namespace fiscarel::forms {
tl::expected<taxcore::Decimal,std::string> parseAmount(std::string_view);
tl::expected<taxcore::Decimal,std::string> parseNumber(std::string_view);
tl::expected<int,std::string> parseInteger(std::string_view);
tl::expected<taxcore::Date,std::string> parseDate(std::string_view,int);
}
