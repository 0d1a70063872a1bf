#include "platform/ado/SetNumbers.h"

#include "platform/ado/store/Session.h"

namespace ado {

void SetNumbers(Connection& connection, const KeyedNumbers& numbers) {
    connection.Opened()->SetNumbers(numbers);
}

}  // namespace ado
