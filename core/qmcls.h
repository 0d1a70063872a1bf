#pragma once

#include "core/clQmInterface.h"
#include "platform/com/ITypeInfo.h"

// The class clQm for hosts in C++: get it by CreateObject(u"QmClass.clQm", ...), or from DllGetClassObject of
// libqmcls.so, and ask for IID__clQm. Its members stand in clQmInterface.h; clQm.idl tells what each member
// does. Arguments that are pointers to other than the result are by reference; the class reads and never
// changes them. Texts are freed by who made them; results belong to the caller.

inline constexpr GUID LIBID_TovikQm = {
    0xEF807331, 0xB71D, 0x4EDA, {0xB7, 0xDF, 0x05, 0x99, 0x03, 0x18, 0x46, 0xAB}};
inline constexpr CLSID CLSID_clQm = {
    0xB551ECA0, 0x2F06, 0x47CD, {0x9D, 0xE9, 0xDD, 0xD9, 0xC3, 0x81, 0x46, 0x8C}};
inline constexpr IID IID__clQm = {
    0xD75345EA, 0xE517, 0x4A9E, {0x87, 0x00, 0x3E, 0x44, 0x5B, 0x1B, 0xA2, 0xDD}};

extern "C" {

// Shows a message box for a host: `text` may have line ends \r, \n or both, `flags` has 4 for a question with
// Yes and No, else there is OK. The answer is 1 OK, 6 Yes, 7 No, or 0 for the one that a box without a person
// gets (OK, to a question No). The call that gave rise to the box waits for it. It may stand in a
// transaction: the routine calls no member of the class and throws nothing.
typedef std::int32_t (*QmBoxHandler)(void* context, const char16_t* text, std::int32_t flags,
                                     const char16_t* title);
// Sends all boxes of this process to the routine, which stays until another is set; null gives them back.
void QmSetBoxHandler(QmBoxHandler handler, void* context);

}  // extern "C"
