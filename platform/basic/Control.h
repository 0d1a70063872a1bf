#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace basic {

// What routines below the screens may ask of a control, whatever toolkit draws it. The calls that a control's
// kind does not know raise 438 "Object doesn't support this property or method".
class Control {
  public:
    virtual ~Control() = default;
    // "TextBox", "CheckBox", "ComboBox", "RichTextBox", "CommandButton", ...
    virtual std::string TypeName() const = 0;
    virtual std::string Name() const = 0;
    virtual void SetText(const std::string& text);
    virtual void SetValue(int value);
    virtual void SetListIndex(int index);
    virtual void SetLocked(bool locked);
};

// A control that holds a list of lines.
class ListControl {
  public:
    virtual ~ListControl() = default;
    virtual void Clear() = 0;
    virtual void AddItem(const std::string& text) = 0;  // at the end
};

// A form as the holder of its controls.
class ControlHost {
  public:
    virtual ~ControlHost() = default;
    virtual std::vector<Control*> Controls() = 0;
};

}  // namespace basic
