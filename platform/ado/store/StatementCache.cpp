#include "platform/ado/store/StatementCache.h"

#include <utility>

namespace ado {

CachedStatementPtr StatementCache::Find(std::string_view key) {
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) return nullptr;
    byUse_.splice(byUse_.begin(), byUse_, found->second);
    return *found->second;
}

CachedStatementPtr StatementCache::Add(std::string key, Plan plan) {
    while (byUse_.size() >= capacity_) {
        byKey_.erase(byUse_.back()->key);
        byUse_.pop_back();
    }
    auto cached = std::make_shared<CachedStatement>();
    cached->key = std::move(key);
    cached->sql = plan.Sql();
    cached->plan = std::make_shared<const Plan>(std::move(plan));
    byUse_.push_front(cached);
    byKey_.emplace(cached->key, byUse_.begin());
    return cached;
}

void StatementCache::Clear() {
    byKey_.clear();
    byUse_.clear();
}

RunningStatement::RunningStatement(Engine& engine, CachedStatementPtr cached) : cached_(std::move(cached)) {
    if (cached_->idle.empty()) {
        statement_ = engine.Prepare(cached_->sql);
    } else {
        statement_ = std::move(cached_->idle.back());
        cached_->idle.pop_back();
    }
}

RunningStatement::~RunningStatement() {
    if (!statement_) return;
    statement_->Reset();
    cached_->idle.push_back(std::move(statement_));
}

}  // namespace ado
