#pragma once

// What the designer's files include: all controls but the grids, the list view and the tree.
#include "platform/forms/Button.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/ControlArray.h"
#include "platform/forms/DTPicker.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/UserControl.h"
