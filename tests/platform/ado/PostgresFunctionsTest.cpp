// The functions that statements call on a server, beside those of the embedded store: the same values, errors
// and texts.
#include <cstdint>
#include <optional>
#include <random>

#include <gmock/gmock.h>
#include <sqlcipher/sqlite3.h>

#include "platform/ado/store/SqlFunctions.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "tests/platform/ado/ServerSession.h"

namespace ado::test {
namespace {

std::string Told(const basic::Error& error) {
    return std::to_string(error.Number) + " " + error.Description + " (" + error.Source + ")";
}

// The embedded store's functions, without a file.
class Embedded {
  public:
    Embedded() {
        sqlite3_open(":memory:", &store_);
        InstallFunctions(store_, raised_);
    }
    ~Embedded() { sqlite3_close(store_); }
    Embedded(const Embedded&) = delete;
    Embedded& operator=(const Embedded&) = delete;

    std::string Value(const std::string& expression) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(store_, ("SELECT " + expression).c_str(), -1, &statement, nullptr);
        std::string value = "-";
        if (sqlite3_step(statement) != SQLITE_ROW)
            value = raised_ ? Told(*raised_) : sqlite3_errmsg(store_);
        else if (sqlite3_column_type(statement, 0) == SQLITE_FLOAT)
            value = basic::NumberText(sqlite3_column_double(statement, 0));
        else if (sqlite3_column_type(statement, 0) != SQLITE_NULL)
            value = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
        sqlite3_finalize(statement);
        raised_.reset();
        return value;
    }

  private:
    sqlite3* store_ = nullptr;
    std::optional<basic::Error> raised_;
};

struct PostgresFunctionsTest : testing::Test {
    void SetUp() override {
        QM_NEEDS_SERVER();
        server.emplace();
    }
    std::string Value(const std::string& expression) {
        try {
            return server->Rows("SELECT " + expression).at(0);
        } catch (const basic::Error& error) {
            return Told(error);
        }
    }
    std::optional<ServerSession> server;
};

TEST_F(PostgresFunctionsTest, FoldAndRaiseEveryCharacterAsTheProgramDoes) {
    std::string wrong;
    for (char32_t block = 0; block < 0x110000; block += 0x100) {
        if (block >= 0xD800 && block < 0xE000) continue;
        std::u16string units;
        for (char32_t code = block == 0 ? 1 : block; code < block + 0x100; ++code) {
            if (code >= 0x10000) units += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
            units += static_cast<char16_t>(code < 0x10000 ? code : 0xDC00 + (code & 0x3FF));
        }
        const std::string text = basic::FromUtf16(units);
        const auto rows = server->Rows("SELECT qm_fold($1) UNION ALL SELECT qm_ucase($1)", {text});
        if (rows.at(0) != basic::FoldCase(text)) wrong += " fold " + std::to_string(block);
        if (rows.at(1) != basic::UCase(text)) wrong += " capitals " + std::to_string(block);
    }
    EXPECT_EQ(wrong, "");
}

TEST_F(PostgresFunctionsTest, WriteNumbersAsTheProgramDoes) {
    std::mt19937_64 random(15);
    std::uniform_real_distribution<double> mantissa(-10, 10);
    std::uniform_int_distribution<int> power(-24, 24), digits(0, 16);
    std::vector<double> numbers{0, -0.0, 1e15, 999999999999999, 1e-15, 1e-16, 1.7e308, 5e-324};
    while (numbers.size() < 50'000) {
        const double scale = std::pow(10, digits(random));
        numbers.push_back(std::nearbyint(mantissa(random) * scale) / scale * std::pow(10, power(random)));
    }
    std::string list;
    char exact[32];
    for (const double number : numbers) {
        std::snprintf(exact, sizeof exact, "%.17g", number);
        list.append(list.empty() ? "{" : ",") += exact;
    }
    const auto texts = server->Rows("SELECT qm_text(x) FROM unnest($1::double precision[]) x", {list + "}"});
    ASSERT_EQ(texts.size(), numbers.size());
    for (std::size_t i = 0; i < texts.size(); ++i) ASSERT_EQ(texts[i], basic::NumberText(numbers[i]));
}

TEST_F(PostgresFunctionsTest, GiveWhatTheEmbeddedStoreGives) {
    Embedded embedded;
    const struct {
        const char* type;
        std::vector<std::string> values;
    } kinds[] = {
        {"text", {"NULL",      "''",    "' 12 '",    "'1,234.50'", "'abc'",    "'1e5'",     "'1D2'",
                  "'.5'",      "'5.'",  "'.'",       "'1,,2'",     "'+3'",     "'-0'",      "'True'",
                  "'fALSE'",   "'2.5'", "'3.5'",     "'1e999'",    "'1e-999'", "'-1e-999'", "'99999999999'",
                  "'32767.5'", "'[a'",  "'Ärger ß'", "'1,5e3 '",   "'0.1 x'",  "'1e'"}},
        {"double precision",
         {"NULL", "0.5", "1.5", "2.5", "-2.5", "-1.0", "1e15", "1e-16", "0.1", "1e300", "2147483647.4",
          "2147483647.5", "32767.5"}},
        {"bigint", {"0", "1", "-1", "5", "32768", "2147483647", "2147483648", "12345678901234567"}},
    };
    for (const auto& kind : kinds)
        for (const std::string& value : kind.values)
            for (const char* function :
                 {"qm_bool(%)", "qm_int(%)", "qm_long(%)", "qm_real(%)", "qm_text(%)", "qm_cstr(%)",
                  "qm_ucase(%)", "qm_left(%, 2)", "qm_left('abc', %)", "qm_truth(%)"}) {
                if (*kind.type == 't' && std::string(function) == "qm_truth(%)") continue;
                const bool texts = *kind.type != 't' && std::string(function) == "qm_left(%, 2)";
                std::string typed = "(" + value + ")::" + kind.type;
                if (texts) typed = "qm_text(" + typed + ")";
                const std::string call = basic::Replace(function, "%", typed);
                const bool flag = std::string(function) == "qm_bool(%)";
                std::string there = Value(flag ? call + "::int" : call);
                if (std::string(function) == "qm_real(%)" || std::string(function) == "qm_truth(%)")
                    if (there != "-" && there.find('(') == std::string::npos)
                        there = basic::NumberText(std::strtod(there.c_str(), nullptr));
                EXPECT_EQ(there, embedded.Value(basic::Replace(function, "%", value))) << call;
            }
}

TEST_F(PostgresFunctionsTest, CompareAndOrderAsTheEmbeddedStoreDoes) {
    Embedded embedded;
    const std::vector<std::string> texts{"",  "a", "A",    "b",   "ab", "aB%", "a_",  "Ä",    "ä",
                                         "É", "z", "Ω",    "Ω",   "K",  "k",   "İ",   "i",    "ı",
                                         "ß", "ẞ", "ſ",    "Ж",   "ж",  "12",  "2",   "日本", "%a%",
                                         "_", "%", "A_%b", "_b%", "Ä%", "%ж",  "\\a", "𐐀",    "𐐨"};
    std::string list;
    for (const std::string& text : texts)
        list.append(list.empty() ? "{\"" : ",\"") += basic::Replace(text, "\\", "\\\\") + "\"";
    const auto there = server->Rows(
        "SELECT concat((qm_fold(a) = qm_fold(b))::int, (qm_fold(a) COLLATE \"C\" < qm_fold(b))::int,"
        " (qm_fold(a) LIKE qm_fold(qm_pattern(b)) ESCAPE '')::int)"
        " FROM unnest($1::text[]) WITH ORDINALITY x(a, i), unnest($1::text[]) WITH ORDINALITY y(b, j) ORDER "
        "BY i, j",
        {list + "}"});
    std::size_t pair = 0;
    for (const std::string& a : texts)
        for (const std::string& b : texts) {
            const std::string both = "'" + a + "', '" + b + "'", compared = "'" + a + "' COLLATE QMTEXT ";
            EXPECT_EQ(there.at(pair++), embedded.Value("(" + compared + "= '" + b + "') || (" + compared +
                                                       "< '" + b + "') || qm_like(" + both + ")"))
                << both;
        }
    EXPECT_EQ(server->Rows("SELECT qm_max(x) FROM unnest($1::text[]) x", {"{a,NULL,É,Z,é,b}"}).at(0), "É");
    EXPECT_EQ(Value("qm_pattern('a[b]')"), embedded.Value("qm_like('a', 'a[b]')"));
}

// A text field beside a number, as the embedded store's numeric affinity reads it.
TEST_F(PostgresFunctionsTest, ReadATextFieldBesideANumber) {
    Embedded embedded;
    for (const char* text :
         {"'5'", "' 5 '", "'5.0'", "'1e1'", "'1,000'", "'abc'", "''", "'.'", "'4d0'", "'+6'", "NULL"})
        for (const char* sign : {"=", "<", ">"})
            EXPECT_EQ(Value("(qm_number(" + std::string(text) + ") " + sign + " 5)::int"),
                      embedded.Value("(" + std::string(text) + " " + sign + " CAST(5 AS NUMERIC))"))
                << text << sign;
}

TEST_F(PostgresFunctionsTest, RaiseForNoRowThatIsNotMet) {
    EXPECT_EQ(Value("CASE WHEN x > 1 THEN qm_cstr(NULL::text) ELSE 'fine' END FROM (VALUES (1)) v(x)"),
              "fine");
    EXPECT_EQ(server->Rows("SELECT qm_long('abc') WHERE FALSE"), std::vector<std::string>{});
    EXPECT_EQ(Value("qm_version()"), std::to_string(ServerFunctionsVersion));
}

}  // namespace
}  // namespace ado::test
