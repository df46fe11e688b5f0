#include "tests/report/PdfFiles.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFOutlineDocumentHelper.hh>

#include <array>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace fiscarel::testing {

std::filesystem::path writeFile(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
}

std::string textOfPdf(const std::filesystem::path& file) {
    const std::string command = "pdftotext -layout -enc UTF-8 '" + file.string() + "' -";
    std::FILE* const pipe = popen(command.c_str(), "r");
    std::string text;
    std::array<char, 65536> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
        text.append(buffer.data(), count);
    }
    if (pclose(pipe) != 0) {
        throw std::runtime_error("pdftotext cannot read " + file.string());
    }
    return text;
}

namespace {

void collect(std::vector<QPDFOutlineObjectHelper> entries, std::vector<std::string>& titles) {
    for (QPDFOutlineObjectHelper& entry : entries) {
        titles.push_back(entry.getTitle());
        collect(entry.getKids(), titles);
    }
}

} // namespace

std::vector<std::string> outlineOf(const std::string& bytes) {
    QPDF pdf;
    pdf.processMemoryFile("test", bytes.data(), bytes.size());
    std::vector<std::string> titles;
    collect(QPDFOutlineDocumentHelper(pdf).getTopLevelOutlines(), titles);
    return titles;
}

} // namespace fiscarel::testing
