#pragma once

// What the designer's files include: the form and all controls but the grids, the list view and the tree.
#include "platform/forms/controls/Button.h"
#include "platform/forms/controls/ComboBox.h"
#include "platform/forms/controls/DTPicker.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/controls/ListBox.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/controls/UserControl.h"
#include "platform/forms/window/ControlArray.h"
#include "platform/forms/window/Form.h"
