#pragma once

// The numbers that callers pass, by their documented names.
namespace ado {
inline constexpr int adUnspecified = -1;

inline constexpr int adOpenForwardOnly = 0;
inline constexpr int adOpenKeyset = 1;
inline constexpr int adOpenDynamic = 2;
inline constexpr int adOpenStatic = 3;

inline constexpr int adLockReadOnly = 1;
inline constexpr int adLockPessimistic = 2;
inline constexpr int adLockOptimistic = 3;

inline constexpr int adUseServer = 2;
inline constexpr int adUseClient = 3;

inline constexpr int adCmdText = 1;
inline constexpr int adCmdTable = 2;
// Of this layer's own: the statement ends in a condition that a host wrote, and knows more of the dialect.
inline constexpr int adHostCondition = 0x40000000;

inline constexpr int adStateClosed = 0;
inline constexpr int adStateOpen = 1;

inline constexpr int adSearchForward = 1;

// Field types, as Field::Type gives them.
inline constexpr int adSmallInt = 2;
inline constexpr int adInteger = 3;
inline constexpr int adDouble = 5;
inline constexpr int adDate = 7;
inline constexpr int adBoolean = 11;
inline constexpr int adVarWChar = 202;
}  // namespace ado
