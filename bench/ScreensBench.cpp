// What stands between a user and a screen: the main menu above opening the books, the look-up over 30,000
// ledgers beside the bare queries.
#include "bench/Bare.h"
#include "bench/BigBooks.h"
#include "bench/Figures.h"
#include "bench/Ours.h"
#include "bench/Screens.h"
#include "screens/ScreenTable.h"
#include "shell/frmSearchAndLookUp.h"
#include "shell/modSearch.h"

namespace bench {
namespace {

constexpr std::int64_t LookUpLedgers = 30000;

const std::filesystem::path& LookUpBooks() {
    static const std::filesystem::path folder = [] {
        const auto made = BooksWith(0, Place::Disk, 30);
        Bare bare(made, false);
        bare.Run("BEGIN");
        BareStatement insert(bare.Db(), "INSERT INTO Ledger_Master (Ledger_ID, Name) VALUES (?, ?)");
        for (std::int64_t id = 1000 + Ledgers; id < 1000 + LookUpLedgers; ++id)
            insert.Bind(1, id).Bind(2, "Ledger " + std::to_string(id)).Run();
        bare.Run("COMMIT");
        return made;
    }();
    return folder;
}

void MenuOurs(benchmark::State& state) {
    AttachScreens();
    const auto folder = BooksWith(0, Place::Disk, 1);
    for (auto _ : state) {
        qm::clQm host;
        host.dataPath(folder.string() + "/");
        Visit("frmNewMenu", [] { forms::Default<qm::frmNewMenu>().Load(qm::ScreenTable()); });
    }
}

void MenuBare(benchmark::State& state) {
    const auto folder = BooksWith(0, Place::Disk, 1);
    for (auto _ : state) Ours ours(folder);
}

void PrepareLookUp(qm::frmSearchAndLookUp& lookUp) {
    lookUp.BaseQuery = "select ledger_ID as [Ledger Id],Name from Ledger_Master";
    qm::SearchLikePrefix = lookUp.BaseQuery + " where Name like ";
}

void LookUpOpensOurs(benchmark::State& state) {
    AttachScreens();
    Ours ours(LookUpBooks());
    auto& lookUp = forms::Default<qm::frmSearchAndLookUp>();
    PrepareLookUp(lookUp);
    for (auto _ : state) Visit("frmSearchAndLookUp", [&] { lookUp.Show(forms::vbModal); });
}

// The look-up runs its query twice in opening: when it is loaded and when it is shown.
void LookUpOpensBare(benchmark::State& state) {
    Bare bare(LookUpBooks());
    BareStatement rows(bare.Db(), "SELECT ledger_ID, Name FROM Ledger_Master");
    for (auto _ : state)
        if (ReadTexts(rows) + ReadTexts(rows) < LookUpLedgers) state.SkipWithError("ledgers are missing");
}

// A word typed letter by letter; the first one narrows nothing.
const std::string Typed[] = {"L", "Le", "Ledger 1", "Ledger 12", "Ledger 123"};

void LookUpNarrowsOurs(benchmark::State& state) {
    AttachScreens();
    Ours ours(LookUpBooks());
    auto& lookUp = forms::Default<qm::frmSearchAndLookUp>();
    PrepareLookUp(lookUp);
    Visit(
        "frmSearchAndLookUp", [&] { lookUp.Show(forms::vbModal); },
        [&](forms::Form&) {
            for (auto _ : state)
                for (const std::string& text : Typed) {
                    lookUp.ui().txtsearch->SetText(text);
                    Draw();
                }
        });
}

void LookUpNarrowsBare(benchmark::State& state) {
    Bare bare(LookUpBooks());
    BareStatement rows(bare.Db(), "SELECT ledger_ID, Name FROM Ledger_Master WHERE Name LIKE ?");
    for (auto _ : state)
        for (const std::string& text : Typed) {
            rows.Bind(1, text + "%");
            if (ReadTexts(rows) == 0) state.SkipWithError("ledgers are missing");
        }
}

const bool registered = [] {
    AddFigure({.name = "books opened and the main menu shown / books opened",
               .ours = MenuOurs,
               .bare = MenuBare,
               .goal = 3});
    AddFigure({.name = "look-up over 30,000 ledgers opens",
               .ours = LookUpOpensOurs,
               .bare = LookUpOpensBare,
               .goal = 3});
    AddFigure({.name = "look-up over 30,000 ledgers narrows, a key",
               .ours = LookUpNarrowsOurs,
               .bare = LookUpNarrowsBare,
               .goal = 3});
    return true;
}();

}  // namespace
}  // namespace bench
