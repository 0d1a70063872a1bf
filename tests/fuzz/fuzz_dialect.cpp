// Statements, as bytes and as the grammar has them, through the translator: what it takes, the store must
// take, and a statement's shape must not depend on the values in it.
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "platform/ado/Errors.h"
#include "platform/ado/dialect/Plan.h"
#include "tests/fuzz/Check.h"
#include "tests/fuzz/StatementWriter.h"
#include "tests/platform/ado/PlainStore.h"

namespace {

using namespace ado;

void CheckTranslation(const Shape& shape, const PlanOptions& options) {
    static ado::test::PlainStore store(fuzz::StatementWriter::Tables);
    Plan plan;
    const std::int32_t raised = fuzz::ErrorOf([&] { plan = Translate(shape, store, options); });
    fuzz::Check(raised == 0 || raised == error::Statement || raised == error::NoSuchTable ||
                    raised == error::UnknownName || raised == error::BadValue,
                "the translator's error is one of its own");
    if (raised != 0 || plan.kind == StatementKind::SelectInto) return;
    for (const Parameter& parameter : plan.parameters)
        fuzz::Check(parameter.literal < shape.literals.size(), "a parameter is a literal of the statement");
    const std::string refusal = store.Prepare(plan.Sql());
    if (!refusal.empty()) std::fprintf(stderr, "%s\n%s\n", plan.Sql().c_str(), refusal.c_str());
    fuzz::Check(refusal.empty(), "the store takes the translation");
}

Shape Written(const fuzz::Input& choices, std::string_view number, std::string_view text,
              std::string_view date) {
    return ShapeOf(fuzz::StatementWriter(choices, number, text, date).Statement(), !date.empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const auto flags = input.Take<std::uint8_t>();
    PlanOptions options;
    options.rowid = (flags & 1) != 0;
    options.hostCondition = (flags & 4) != 0;
    Shape shape;
    if ((flags & 2) != 0) {
        const std::int32_t raised =
            fuzz::ErrorOf([&] { shape = ShapeOf(input.Rest(), options.hostCondition); });
        fuzz::Check(raised == 0 || raised == error::Statement, "a shape's error is about the statement");
        if (raised == 0) CheckTranslation(shape, options);
        return 0;
    }
    const bool wide = options.hostCondition;
    shape = Written(input, "1", "'it''s'", wide ? "#4/1/2001#" : "");
    fuzz::Check(
        shape.key == Written(input, "2.50E-3", "\"a \"\"b\"\" [c] ; --\"", wide ? "#31-Mar-2002#" : "").key,
        "the shape does not depend on the values");
    CheckTranslation(shape, options);
    return 0;
}
