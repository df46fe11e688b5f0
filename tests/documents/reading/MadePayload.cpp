#include "tests/documents/reading/MadePayload.h"

#include <zlib.h>

namespace fiscarel {

namespace {

std::string deflated(const std::string& text, int windowBits) {
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY);
    std::string input = text;
    std::string out(deflateBound(&stream, static_cast<uLong>(text.size())) + 64, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    deflate(&stream, Z_FINISH);
    out.resize(stream.total_out);
    deflateEnd(&stream);
    return out;
}

std::string little(unsigned long value, int bytes) {
    std::string out;
    for (int i = 0; i < bytes; ++i) {
        out += static_cast<char>(value >> (8 * i) & 0xFFU);
    }
    return out;
}

std::string big(std::size_t value) {
    return {static_cast<char>(value >> 8U & 0xFFU), static_cast<char>(value & 0xFFU)};
}

std::vector<std::string> cut(const std::string& bytes, int count) {
    const std::size_t size = bytes.size() / static_cast<std::size_t>(count) + 1;
    std::vector<std::string> parts;
    for (int i = 0; i < count; ++i) {
        parts.push_back(bytes.substr(static_cast<std::size_t>(i) * size, size));
    }
    return parts;
}

} // namespace

std::string packed(const std::string& text) { return deflated(text, MAX_WBITS); }

std::string zipped(const std::string& text) {
    const std::string data = deflated(text, -MAX_WBITS);
    const auto sum =
        crc32(0, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(text.size()));
    return "PK\x03\x04" + little(20, 2) + little(0, 2) + little(8, 2) + little(0, 4)
           + little(sum, 4) + little(data.size(), 4) + little(text.size(), 4) + little(4, 2)
           + little(0, 2) + "txab" + data;
}

std::vector<PageSymbol> certificateSymbols(const std::string& xml, int count,
                                           const std::string& document) {
    std::vector<PageSymbol> symbols;
    const auto parts = cut(zipped(xml), count);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        symbols.push_back({.symbology = PageSymbol::Symbology::pdf417,
                           .bytes = document + big(0x7A00) + big(parts[i].size() + 14) + big(0x0103)
                                    + big(i + 1) + big(parts.size()) + parts[i]
                                    + std::string(3, '\0'), // what fills the symbol up
                           .place = {80, 700, 300, 780}});
    }
    return symbols;
}

std::vector<PageSymbol> statementSymbols(const std::string& xml, int count) {
    std::vector<PageSymbol> symbols;
    const auto parts = cut(packed(xml), count);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        symbols.push_back(
            {.symbology = PageSymbol::Symbology::pdf417,
             .bytes = parts[i],
             .place = {400, 100, 500, 500},
             .part = PageSymbol::Part{.index = static_cast<int>(i), .message = "x7"}});
    }
    return symbols;
}

PageSymbol qrSymbol(const std::string& content) {
    return {
        .symbology = PageSymbol::Symbology::qr, .bytes = content, .place = {200, 600, 330, 730}};
}

std::string certificateXml(const std::string& net) {
    return R"(<?xml version="1.0"?><t:T xmlns:t="http://www.swissdec.ch/schema/sd/20990101/X">)"
           R"(<t:Company UID-BFS="CHE-1" HR-RC-Name="Muster &amp; Söhne AG"/>)"
           R"(<t:PersonID Lastname="Keller" Firstname="Rosa"><t:SV-AS-Nr>756.1111.2222.33</t:SV-AS-Nr>)"
           R"(</t:PersonID><t:S><t:Period><t:from>2024-01-01</t:from><t:until>2024-12-31</t:until>)"
           R"(</t:Period><t:CanteenLunchCheck/><t:GrossIncome>68000.00</t:GrossIncome>)"
           R"(<t:AHV-ALV-NBUV-AVS-AC-AANP-Contribution>3657.00</t:AHV-ALV-NBUV-AVS-AC-AANP-Contribution>)"
           R"(<t:BVG-LPP-Contribution><t:Regular>6500.00</t:Regular><t:Purchase>1500.00</t:Purchase>)"
           R"(</t:BVG-LPP-Contribution><t:NetIncome>)"
           + net
           + R"(</t:NetIncome><t:Charges><t:Effective><t:Other><t:Sum>250.00</t:Sum></t:Other></t:Effective>)"
             R"(<t:LumpSum><t:Car>900.00</t:Car><t:Other><t:Sum>600.00</t:Sum></t:Other></t:LumpSum>)"
             R"(</t:Charges><t:Remark>Ohne Gewähr</t:Remark></t:S></t:T>)";
}

std::string pensionXml() {
    return R"(<T xmlns="http://www.swissdec.ch/schema/sd/20200220/SalaryDeclarationTxAB">)"
           R"(<Company HR-RC-Name="Kasse Muster"/><PersonID Lastname="Keller" Firstname="Otto"/>)"
           R"(<A><Period><from>2024-01-01</from><until>2024-12-31</until></Period>)"
           R"(<GrossIncome>24000.00</GrossIncome><NetIncome>24000.00</NetIncome></A></T>)";
}

std::string statementXml(const std::string& total) {
    return R"(<taxStatement xmlns="http://www.ech.ch/xmlns/eCH-0196/2" taxPeriod="2025" canton="SG")"
           R"( totalTaxValue=")"
           + total
           + R"(" totalGrossRevenueA="100.00" totalGrossRevenueB="137.45" minorVersion="22">)"
             R"(<institution name="Bank Muster"/><client firstName="Rosa" lastName="Keller"/>)"
             R"(<listOfBankAccounts totalTaxValue="17000.06" totalGrossRevenueA="100.00" totalGrossRevenueB="22.94">)"
             R"(<bankAccount iban="CH9300762011623852957" bankAccountName="Sparkonto" totalTaxValue="17000.06")"
             R"( totalGrossRevenueA="100.00" totalGrossRevenueB="22.94"/></listOfBankAccounts>)"
             R"(<listOfSecurities totalTaxValue="22350.96" totalGrossRevenueA="0" totalGrossRevenueB="114.51">)"
             R"(<depot depotNumber="1"><security positionId="1" isin="CH0012032048" securityName="Muster N">)"
             R"(<taxValue quantity="200" value="22350.957"/><payment grossRevenueB="100.0"/>)"
             R"(<payment grossRevenueA="0" grossRevenueB="14.5092"/></security></depot></listOfSecurities>)"
             R"(<listOfLiabilities totalTaxValue="500.00" totalGrossRevenueB="12.00"><liabilityAccount)"
             R"( bankAccountName="Kredit" totalTaxValue="500.00" totalGrossRevenueB="12.00"/>)"
             R"(</listOfLiabilities><listOfExpenses totalExpensesDeductible="80.50"/></taxStatement>)";
}

std::string billText(const std::string& amount, const std::string& end,
                     const std::string& information) {
    std::string text;
    for (const std::string& line : {std::string("SPC"),
                                    std::string("0200"),
                                    std::string("1"),
                                    std::string("CH93 0076 2011 6238 5295 7"),
                                    std::string("S"),
                                    std::string("Praxis Muster"),
                                    std::string("Gasse"),
                                    std::string("1"),
                                    std::string("9000"),
                                    std::string("St.Gallen"),
                                    std::string("CH"),
                                    std::string(),
                                    std::string(),
                                    std::string(),
                                    std::string(),
                                    std::string(),
                                    std::string(),
                                    std::string(),
                                    amount,
                                    std::string("CHF"),
                                    std::string("K"),
                                    std::string("Rosa Keller"),
                                    std::string("Weg 2"),
                                    std::string("9000 St.Gallen"),
                                    std::string(),
                                    std::string(),
                                    std::string("CH"),
                                    std::string("QRR"),
                                    std::string("21 00000 00003 13947 14300 09017"),
                                    std::string("Rechnung 7"),
                                    std::string("EPD"),
                                    information}) {
        text += line + end;
    }
    return text;
}

} // namespace fiscarel
