// The list of items over 20,000 of them, beside the bare queries.
#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"
#include "bench/Screens.h"
#include "inventory/frmItemList.h"

namespace bench {
namespace {

constexpr std::int64_t Items = 20000;

const std::filesystem::path& PickerBooks() {
    static const std::filesystem::path folder = [] {
        const auto made = BooksWith(0, Place::Disk, 50);
        Bare bare(made, false);
        bare.Run("BEGIN");
        BareStatement insert(bare.Db(),
                             "INSERT INTO ItemMaster2001 (Item_ID, Item_Name, Unit_Price) VALUES (?, ?, ?)");
        for (std::int64_t id = 1; id <= Items; ++id)
            insert.Bind(1, id)
                .Bind(2, "Item " + std::to_string(id))
                .Bind(3, static_cast<double>(id) / 4)
                .Run();
        bare.Run("COMMIT");
        return made;
    }();
    return folder;
}

void OpensOurs(benchmark::State& state) {
    AttachScreens();
    Ours ours(PickerBooks());
    for (auto _ : state) Visit("frmItemList", [] { forms::Default<qm::frmItemList>().Load(); });
}

void OpensBare(benchmark::State& state) {
    Bare bare(PickerBooks());
    BareStatement rows(bare.Db(), "SELECT CAST(Item_ID AS TEXT), Item_Name, Unit_Price FROM ItemMaster2001");
    for (auto _ : state)
        if (ReadTexts(rows) < Items) state.SkipWithError("items are missing");
}

const std::string Typed[] = {"i", "it", "item 1", "item 12", "item 123"};

void NarrowsOurs(benchmark::State& state) {
    AttachScreens();
    Ours ours(PickerBooks());
    auto& picker = forms::Default<qm::frmItemList>();
    Visit(
        "frmItemList", [&] { picker.Load(); },
        [&](forms::Form&) {
            picker.ui().cmbSearchList->SetText("Item Name");
            for (auto _ : state)
                for (const std::string& text : Typed) {
                    picker.ui().txtSearchText->SetText(text);
                    Draw();
                }
        });
}

void NarrowsBare(benchmark::State& state) {
    Bare bare(PickerBooks());
    BareStatement rows(bare.Db(),
                       "SELECT CAST(Item_ID AS TEXT), Item_Name, Unit_Price FROM ItemMaster2001 WHERE "
                       "upper(Item_Name) LIKE ?");
    for (auto _ : state)
        for (const std::string& text : Typed) {
            std::string upper = text;
            for (char& letter : upper) letter = static_cast<char>(std::toupper(letter));
            rows.Bind(1, upper + "%");
            if (ReadTexts(rows) == 0) state.SkipWithError("items are missing");
        }
}

const bool registered = [] {
    AddFigure({.name = "list of 20,000 items opens", .ours = OpensOurs, .bare = OpensBare, .goal = 4});
    AddFigure(
        {.name = "list of 20,000 items narrows, a key", .ours = NarrowsOurs, .bare = NarrowsBare, .goal = 4});
    return true;
}();

}  // namespace
}  // namespace bench
