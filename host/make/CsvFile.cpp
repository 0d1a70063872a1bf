#include "host/make/CsvFile.h"

#include <fstream>
#include <sstream>

#include <csv.h>

#include "platform/basic/Error.h"

namespace host {
namespace {

struct Reading {
    std::vector<CsvRow> rows;
    CsvRow current;
    int line = 1;
    bool started = false;
};

void TakeField(void* text, std::size_t length, void* data) {
    auto& reading = *static_cast<Reading*>(data);
    reading.current.fields.emplace_back(static_cast<const char*>(text), length);
}

void TakeRow(int, void* data) {
    auto& reading = *static_cast<Reading*>(data);
    reading.rows.push_back(std::move(reading.current));
    reading.current = {};
    reading.started = false;
}

std::string Contents(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    if (in) text << in.rdbuf();
    if (!in)
        throw basic::Error(basic::error::InvalidCall, "The file '" + file.string() + "' cannot be read",
                           "host");
    return text.str();
}

// The parser does not count lines, so it is fed byte by byte.
void Feed(csv_parser& parser, std::string_view text, Reading& reading) {
    for (const char byte : text) {
        if (!reading.started && byte != '\n' && byte != '\r') {
            reading.started = true;
            reading.current.line = reading.line;
        }
        if (csv_parse(&parser, &byte, 1, TakeField, TakeRow, &reading) != 1)
            throw basic::Error(
                basic::error::InvalidCall,
                "line " + std::to_string(reading.line) + ": a quote stands where none may stand", "host");
        if (byte == '\n') ++reading.line;
    }
    if (csv_fini(&parser, TakeField, TakeRow, &reading) != 0)
        throw basic::Error(basic::error::InvalidCall,
                           "line " + std::to_string(reading.current.line) + ": a quote never ends", "host");
}

}  // namespace

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

std::vector<CsvRow> ReadCsv(const std::filesystem::path& file) {
    return ParseCsv(Contents(file));
}

}  // namespace host
