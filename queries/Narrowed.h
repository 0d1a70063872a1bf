#pragma once

#include <memory>
#include <string>
#include <vector>

#include "queries/Sheet.h"

namespace queries {

// The rows of a sheet that hold each of some words somewhere in their texts, without regard to case.
class Narrowed final : public Sheet {
  public:
    Narrowed(std::unique_ptr<Sheet> sheet, const std::string& words);

    const std::string& Title() const override { return sheet_->Title(); }
    const std::vector<Column>& Columns() const override { return sheet_->Columns(); }
    std::size_t Rows() const override { return kept_.size(); }
    basic::Value At(std::size_t row, std::size_t column) const override {
        return sheet_->At(kept_.at(row), column);
    }
    int Level(std::size_t row) const override { return sheet_->Level(kept_.at(row)); }

  private:
    std::unique_ptr<Sheet> sheet_;
    std::vector<std::size_t> kept_;
};

}  // namespace queries
