#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/ado/Connection.h"
#include "platform/ado/Constants.h"
#include "platform/ado/KeptRows.h"
#include "platform/basic/Value.h"

namespace ado {

class Recordset;

[[noreturn]] void RefuseNoRecord();                       // raises NoCurrentRecord
[[noreturn]] void RefuseFieldNumber(std::int64_t index);  // raises ItemNotFound, naming the number

// One field of the record on which its record set stands. Cheap to make and to copy; valid as long as the
// record set.
class Field {
  public:
    Field(Recordset& owner, std::size_t index) : owner_(&owner), index_(index) {}

    std::size_t Index() const { return index_; }  // from 0
    std::string Name() const;
    int Type() const;         // adInteger, adDouble, adBoolean, adVarWChar, ...
    int DefinedSize() const;  // bytes of the type; of a text the most that it could have: there is no limit
    // Bytes of the value, a text's in UTF-16; 0 of Null. Raises NoCurrentRecord.
    int ActualSize() const;
    basic::Value Value() const;  // raises NoCurrentRecord; a pending edit shows
    // Edits the current or the added record; raises NotUpdatable, BadValue.
    void SetValue(const basic::Value& value);

  private:
    Recordset* owner_;
    std::size_t index_;
};

// The rows of one select: a snapshot that is read whole at Open, so no statement stays open behind it and
// writing, committing or rolling back while it stands is safe. A record set over one table with a lock type
// other than adLockReadOnly can be edited: a move, Update or AddNew stores a pending edit into exactly the
// row it stands on. (A static, read-only set over a whole table is read when it is first looked at, or before
// the next write of its connection: so Open and Filter over a long table read only the rows of the filter.)
class Recordset : public std::enable_shared_from_this<Recordset> {
  public:
    Recordset();
    ~Recordset();  // drops a pending edit
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    // Opens a select, or a table by its bare name. With no source the last one is used. CursorLocation 3
    // makes CursorType read 3. Of the options only adHostCondition matters. Raises ObjectOpen, and what the
    // statement raises.
    void Open(std::string_view source = {}, ConnectionPtr connection = nullptr,
              int cursorType = adUnspecified, int lockType = adUnspecified, int options = adUnspecified);
    void Requery();  // runs the source again, keeps Filter, stands on the first row
    void Close();    // drops a pending edit; raises ObjectClosed

    int State() const;  // closed, too, once its connection is; rows that were read can still be read
    int CursorType() const;
    int LockType() const;
    int CursorLocation() const;
    void SetCursorLocation(int location);  // before Open
    const std::string& Source() const;
    void SetSource(std::string_view source);
    void SetActiveConnection(ConnectionPtr connection);

    bool Eof() const;
    bool Bof() const;
    std::int64_t RecordCount() const;  // rows that pass Filter
    // These five store a pending edit and raise NoCurrentRecord where there is none to go to.
    void MoveFirst();
    void MoveNext();
    void MovePrevious();
    void MoveLast();
    void Move(std::int64_t rows);           // forward, or back for less than 0; stops at EOF and BOF
    std::int64_t AbsolutePosition() const;  // from 1; -2 at BOF, -3 at EOF

    // "" shows all rows; a condition of the form "Field = 12 [And ...] [Or ...]" with =, <>, <, >, <=, >=,
    // Like and a number or a quoted text hides the others; stands on the first that is left. Raises
    // BadArgument for any other form.
    const std::string& Filter() const;
    void SetFilter(std::string_view condition);
    // Goes forward from the current row, skipping `skip` rows, to the first that meets the one comparison,
    // else to EOF. Raises NoCurrentRecord at EOF, BadArgument for any other form or direction.
    void Find(std::string_view criteria, std::int64_t skip = 0, int direction = adSearchForward);

    std::size_t FieldCount() const;
    Field Fields(std::size_t index);  // from 0; raises ItemNotFound
    // A bare name finds the first of that name, "Table.Field" that very one.
    Field Fields(std::string_view name);
    basic::Value operator[](std::string_view name) { return Fields(name).Value(); }
    // The value of a row that passes Filter, 0 the first, without moving: lists draw from it.
    basic::Value ValueAt(std::int64_t row, std::size_t field) const;
    // What ValueAt reads now, of a read-only set: it stands on its own from here on.
    KeptRows Keep() const;

    // Starts a record; only the fields that are set are written, the others take their defaults.
    void AddNew();
    void Update();  // stores the pending edit or the added record; raises NotUpdatable, BadValue

    struct Impl;
    Impl& Internals() { return *impl_; }  // for this layer

  private:
    std::unique_ptr<Impl> impl_;
};

}  // namespace ado
