#pragma once

#include <functional>

#include "platform/ado/store/Engine.h"

namespace ado {

// The levels that BeginTrans opened: the outermost is a transaction of the store, the inner ones are
// savepoints. A full disk can make the store roll back by itself. All levels are lost then: the work is gone,
// but the callers still stand inside their BeginTrans. Until each of them has called RollbackTrans (which
// passes quietly), nothing is written and nothing is reported as committed.
class Transactions {
  public:
    explicit Transactions(Engine& engine) : engine_(engine) {}

    int Begin();      // gives the new depth
    void Commit();    // of a lost level: raises, and the level stays
    void Rollback();  // both raise NoTransaction at depth 0
    void RollbackAll();
    int Depth() const { return depth_; }

    // Runs a write in the level that stands open, or on its own. `whole`: what it does in several steps is
    // undone if a later step fails. The store itself undoes a statement that breaks a rule of its table, but
    // not one that is stopped by a function of ours.
    void Write(bool whole, const std::function<void()>& write);
    // The same for a change of several statements.
    void Atomic(const std::function<void()>& change);
    // A write that runs ahead of what comes next: see Engine::SendAhead.
    void Ahead(EngineStatement& write, const basic::Error* none);
    // Several of them as one: see Engine::WriteTogether. Outside transactions only.
    void Together(const std::function<void()>& writes) { engine_.WriteTogether(writes); }

  private:
    bool Lost() const { return depth_ > 0 && !engine_.InTransaction(); }
    void RefuseLost() const;
    void InSavepoint(const std::function<void()>& change);

    Engine& engine_;
    int depth_ = 0;
};

}  // namespace ado
