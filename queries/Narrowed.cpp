#include "queries/Narrowed.h"

#include "queries/Words.h"

namespace queries {

Narrowed::Narrowed(std::unique_ptr<Sheet> sheet, const std::string& words) : sheet_(std::move(sheet)) {
    const Words wanted(words);
    for (std::size_t row = 0; row < sheet_->Rows(); ++row) {
        std::vector<std::string> texts;
        for (std::size_t column = 0; column < Columns().size(); ++column)
            if (Columns()[column].kind == Kind::Text)
                texts.push_back(basic::TextOrEmpty(sheet_->At(row, column)));
        if (wanted.In({texts.begin(), texts.end()})) kept_.push_back(row);
    }
}

}  // namespace queries
