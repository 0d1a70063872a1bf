#include "host/make/CsvFile.h"

#include <fstream>

#include <csv.h>

#include "host/make/Fail.h"

namespace host {
namespace {

struct Reading {
    std::vector<CsvRow> rows;
    CsvRow current;
    std::size_t rowBytes = 0;
    int line = 1;
    bool started = false;

    [[noreturn]] void Stop(const std::string& reason) const {
        throw CsvError(started ? current.line : line, current.fields.size(), reason);
    }
};

void TakeField(void* text, std::size_t length, void* data) {
    auto& reading = *static_cast<Reading*>(data);
    reading.current.fields.emplace_back(static_cast<const char*>(text), length);
}

void TakeRow(int, void* data) {
    auto& reading = *static_cast<Reading*>(data);
    reading.rows.push_back(std::move(reading.current));
    reading.current = {};
    reading.rowBytes = 0;
    reading.started = false;
}

void CheckBounds(Reading& reading) {
    if (++reading.rowBytes > MostRowBytes)
        reading.Stop("the row is longer than 1 MB: does a quote never end?");
    if (reading.current.fields.size() > MostFields)
        reading.Stop("more than " + std::to_string(MostFields) + " fields stand in one row");
    if (reading.rows.size() > MostRows)
        reading.Stop("the file has more than " + std::to_string(MostRows) + " rows: split it");
}

// The parser does not count lines, so it is fed byte by byte. A line ends with \n, \r or both.
void Feed(csv_parser& parser, std::string_view text, Reading& reading) {
    char before = 0;
    for (const char byte : text) {
        if (!reading.started && byte != '\n' && byte != '\r') {
            reading.started = true;
            reading.current.line = reading.line;
            reading.rowBytes = 0;
        }
        CheckBounds(reading);
        if (csv_parse(&parser, &byte, 1, TakeField, TakeRow, &reading) != 1)
            reading.Stop("a quote stands where none may stand");
        if (byte == '\r' || (byte == '\n' && before != '\r')) ++reading.line;
        before = byte;
    }
    if (csv_fini(&parser, TakeField, TakeRow, &reading) != 0) reading.Stop("a quote never ends");
}

}  // namespace

CsvError::CsvError(int atLine, std::size_t atField, const std::string& why)
    : basic::Error(basic::error::InvalidCall, "line " + std::to_string(atLine) + ": " + why, "host"),
      line(atLine),
      field(atField),
      reason(why) {}

std::vector<CsvRow> ParseCsv(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    Reading reading;
    csv_parser parser;
    csv_init(&parser, CSV_STRICT | CSV_STRICT_FINI);
    try {
        Feed(parser, text, reading);
    } catch (...) {
        csv_free(&parser);
        throw;
    }
    csv_free(&parser);
    return reading.rows;
}

std::string FileText(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string text;
    char part[1 << 16];
    while (in.read(part, sizeof part) || in.gcount() > 0) {
        text.append(part, static_cast<std::size_t>(in.gcount()));
        if (text.size() > MostBytes) Fail("The file '" + file.string() + "' is larger than 64 MB: split it");
    }
    if (!in.eof()) Fail("The file '" + file.string() + "' cannot be read");
    return text;
}

}  // namespace host
