#pragma once

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"

#include <pugixml.hpp>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace fiscarel {

/// The most bytes a payload may unpack to.
constexpr std::size_t mostPayloadBytes = std::size_t{8} << 20U;

/// Unpacks zlib data (RFC 1950); bytes behind its end do not matter. Absent when it is damaged, is
/// cut off or unpacks to more than `mostPayloadBytes`.
std::optional<std::string> unpackZlib(std::string_view bytes);

/// Unpacks the first entry of a ZIP file from its local header, so that a missing directory at the
/// end does not matter. Absent as with `unpackZlib`, and when the entry is encrypted.
std::optional<std::string> unpackFirstZipEntry(std::string_view bytes);

/// XML of a payload. Element and attribute names are compared without their prefix, because
/// issuers differ in namespaces and their dates.
class PayloadXml {
  public:
    /// Absent when the text is no XML, declares a document type, or nests deeper than 40 elements.
    static std::optional<PayloadXml> parse(std::string_view text);

    pugi::xml_node root() const { return document_->document_element(); }

  private:
    std::shared_ptr<pugi::xml_document> document_;
};

/// A name without its prefix.
std::string_view localName(std::string_view name);
/// The first child element of a name; an empty node when there is none.
pugi::xml_node childOf(pugi::xml_node node, std::string_view name);
/// The text of a child element, without blanks around it and with single blanks within.
std::string textOf(pugi::xml_node node, std::string_view child);
/// An attribute's text, as `textOf`.
std::string attributeOf(pugi::xml_node node, std::string_view name);
/// Amounts up to 10^12 with a point; absent for anything else.
std::optional<taxcore::Decimal> amountOf(std::string_view text);
/// The day an ISO date or date-time begins with.
std::optional<taxcore::Date> dayOf(std::string_view text);

/// All child elements of a name, in their order.
template <class Use>
void forEachChild(pugi::xml_node node, std::string_view name, Use use) {
    for (const pugi::xml_node child : node.children()) {
        if (child.type() == pugi::node_element && localName(child.name()) == name) {
            use(child);
        }
    }
}

} // namespace fiscarel
