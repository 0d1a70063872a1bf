#include "platform/ado/store/Transactions.h"

#include "platform/ado/Errors.h"
#include "platform/basic/Error.h"

namespace ado {
namespace {

void RefuseNone(int depth) {
    if (depth == 0) throw basic::Error(error::NoTransaction, "No transaction is active.", "ado.Connection");
}

}  // namespace

int Transactions::Begin() {
    // A level inside lost ones is only counted, so that its own RollbackTrans does not take that of another.
    if (!Lost()) {
        if (depth_ == 0) {
            engine_.Begin();
        } else {
            engine_.Savepoint(depth_ + 1);
        }
    }
    return ++depth_;
}

void Transactions::Commit() {
    RefuseNone(depth_);
    RefuseLost();
    if (depth_ == 1) {
        engine_.Commit();
    } else {
        engine_.Release(depth_);
    }
    --depth_;
}

void Transactions::Rollback() {
    RefuseNone(depth_);
    if (!Lost()) {
        if (depth_ == 1) {
            engine_.Rollback();
        } else {
            engine_.RollbackTo(depth_);
        }
    }
    --depth_;
}

void Transactions::RollbackAll() {
    if (engine_.InTransaction()) engine_.Rollback();
    depth_ = 0;
}

void Transactions::Write(bool whole, const std::function<void()>& write) {
    RefuseLost();
    if (depth_ == 0) {
        engine_.WriteLoosely(write);
    } else if (whole) {
        InSavepoint(write);
    } else {
        write();
    }
}

void Transactions::Ahead(EngineStatement& write, const basic::Error* none) {
    RefuseLost();
    engine_.SendAhead(write, none);
}

void Transactions::Atomic(const std::function<void()>& change) {
    RefuseLost();
    if (depth_ > 0) return InSavepoint(change);
    engine_.Begin();
    try {
        change();
        engine_.Commit();
    } catch (...) {
        RollbackAll();
        throw;
    }
}

void Transactions::InSavepoint(const std::function<void()>& change) {
    const int level = depth_ + 1;
    engine_.Savepoint(level);
    try {
        change();
    } catch (...) {
        if (engine_.InTransaction()) engine_.RollbackTo(level);
        throw;
    }
    engine_.Release(level);
}

void Transactions::RefuseLost() const {
    if (!Lost()) return;
    throw basic::Error(
        error::Unspecified,
        "The transaction was lost when an earlier statement failed: all of it has been undone.",
        "ado.Connection");
}

}  // namespace ado
