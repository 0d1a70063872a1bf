#pragma once

#include <memory>
#include <string>

#include "platform/ado/store/Engine.h"
#include "platform/ado/store/Schema.h"

namespace ado {

// A store that is being made. Nothing of it stands for others before Finish; without Finish it goes away with
// this object. Raises basic::Error with a number of ado::error.
class NewStore {
  public:
    virtual ~NewStore() = default;
    // Makes a table and makes ready for its rows; its indexes come with EndTable.
    virtual void BeginTable(const SchemaTable& table) = 0;
    virtual void Add(const EngineStatement& row) = 0;  // the present row of one whose columns are the table's
    virtual void EndTable() = 0;
    // The rows that were written, their columns as those of the table, in the order in which they came.
    virtual std::unique_ptr<EngineStatement> Rows(const SchemaTable& table) = 0;
    virtual void Finish() = 0;  // on disk when it returns
    // The name that books got which stood in the place of these; "" where none did.
    virtual std::string SetAside() const { return ""; }
};

// A new encrypted file. Raises BadArgument where something stands there.
std::unique_ptr<NewStore> NewFile(const std::string& path, const std::string& password);

// New books on a server: in the database that the source names, which must be empty, or in a new one of that
// name, which needs the right to make one. All of it is one transaction. `roles`: two roles are made for it,
// of those who write (NAME_books, to whom all belongs) and of those who read (NAME_read). Where books stand
// there and are to be set aside, the new ones are made in a database beside them, with the same roles; Finish
// gives the old one a dated name and the new one the old one's, both or neither, which raises where a program
// has it open.
enum class Standing { Refuse, SetAside };
std::unique_ptr<NewStore> NewOnServer(const std::string& source, bool roles,
                                      Standing standing = Standing::Refuse);

}  // namespace ado
