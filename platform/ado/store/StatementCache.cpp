#include "platform/ado/store/StatementCache.h"

#include <utility>

namespace ado {

PreparedStatement::PreparedStatement(std::string itsKey, Plan itsPlan)
    : key(std::move(itsKey)), plan(std::make_shared<const Plan>(std::move(itsPlan))), sql(plan->Sql()) {}

PreparedStatement::Copy PreparedStatement::Take(Engine& engine) {
    if (idle_.empty()) idle_.push_back(engine.Prepare(sql));
    Copy copy(idle_.back().release(), {shared_from_this()});
    idle_.pop_back();
    return copy;
}

void PreparedStatement::GiveBack::operator()(EngineStatement* copy) const {
    copy->Reset();
    to->idle_.emplace_back(copy);
}

PreparedStatementPtr StatementCache::Find(std::string_view key) {
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) return nullptr;
    byUse_.splice(byUse_.begin(), byUse_, found->second);
    return *found->second;
}

PreparedStatementPtr StatementCache::Add(std::string key, Plan plan) {
    byUse_.push_front(std::make_shared<PreparedStatement>(std::move(key), std::move(plan)));
    size_ += byUse_.front()->sql.size();
    while (size_ > capacity_ && byUse_.size() > 1) DropLast();
    byKey_.emplace(byUse_.front()->key, byUse_.begin());
    return byUse_.front();
}

void StatementCache::DropLast() {
    size_ -= byUse_.back()->sql.size();
    byKey_.erase(byUse_.back()->key);
    byUse_.pop_back();
}

void StatementCache::Clear() {
    size_ = 0;
    byKey_.clear();
    byUse_.clear();
}

}  // namespace ado
