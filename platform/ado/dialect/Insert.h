#pragma once

#include <string>
#include <vector>

#include "platform/ado/dialect/Select.h"

namespace ado {

// Translates an insert, from the word Into on.
class InsertReader {
  public:
    InsertReader(TokenReader& tokens, Catalog& catalog, Plan& plan)
        : tokens_(tokens), catalog_(catalog), plan_(plan) {}

    void Whole();

  private:
    void Columns();
    const ColumnInfo& Add(const std::string& name);
    std::string GivenValues();
    std::string SelectedValues();

    TokenReader& tokens_;
    Catalog& catalog_;
    Plan& plan_;
    const TableInfo* table_ = nullptr;
    std::vector<const ColumnInfo*> columns_;
};

}  // namespace ado
