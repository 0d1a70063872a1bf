#include "platform/ado/Together.h"

#include "platform/ado/store/Session.h"

namespace ado {

void Together(Connection& connection, const std::function<void()>& writes) {
    const std::shared_ptr<Session> session = connection.Opened();
    session->Together(writes);
}

}  // namespace ado
