#include "platform/ado/store/ServerAddress.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "platform/ado/Errors.h"
#include "platform/ado/store/Libpq.h"
#include "platform/ado/store/PostgresSchema.h"
#include "platform/basic/Error.h"

namespace ado {
namespace {

// Milliseconds in which a host that answers nothing, not even that it will not, is given up for the next one.
constexpr const char* MostForAHost = "4000";

[[noreturn]] void Refuse(const std::string& text) {
    throw basic::Error(error::BadArgument, text, "ado.Connection");
}

// A socket's folder or this machine by its own names.
bool IsHere(std::string_view host) {
    return host.empty() || host.starts_with('/') || host.starts_with('@') || host == "localhost" ||
           host == "127.0.0.1" || host == "::1";
}

bool AllHere(std::string_view hosts) {
    for (std::size_t at = 0; at <= hosts.size();) {
        const std::size_t end = std::min(hosts.find(',', at), hosts.size());
        if (!IsHere(hosts.substr(at, end - at))) return false;
        at = end + 1;
    }
    return true;
}

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

class Reader {
  public:
    explicit Reader(const std::string& uri) {
        const std::unique_ptr<PQconninfoOption, decltype(Libpq::PQconninfoFree)> options(
            Libpq::Get().PQconninfoParse(uri.c_str(), nullptr), Libpq::Get().PQconninfoFree);
        if (!options) Refuse("The address of the server's books does not read.");
        for (const PQconninfoOption* option = options.get(); option->keyword != nullptr; ++option)
            if (option->val != nullptr) address_.settings.emplace_back(option->keyword, option->val);
    }

    ServerAddress Read(const std::string& uri) {
        if (!Setting("password").empty())
            Refuse(
                "The address of the server's books holds a password, and addresses are shown: put it into "
                "the "
                "file ~/.pgpass instead.");
        if (Setting("dbname").size() > LongestServerName)
            Refuse("The name of the server's database is longer than " + std::to_string(LongestServerName) +
                   " bytes, which a server would cut off.");
        address_.shown = uri;
        const std::string service = Or("service", "PGSERVICE");
        address_.isElsewhere =
            !service.empty() || !AllHere(Or("host", "PGHOST")) || !AllHere(Or("hostaddr", "PGHOSTADDR"));
        if (address_.isElsewhere && service.empty()) Encrypt();
        AddUnlessSet("client_encoding", "UTF8");
        AddUnlessSet("application_name", "qm");
        AddUnlessSet("tcp_user_timeout", MostForAHost);
        return std::move(address_);
    }

  private:
    std::string Setting(std::string_view name) const {
        for (const auto& [its, value] : address_.settings)
            if (its == name) return value;
        return "";
    }
    std::string Or(const char* name, const char* variable) const {
        const std::string own = Setting(name);
        return own.empty() ? Environment(variable) : own;
    }
    void AddUnlessSet(const char* name, const char* value) {
        if (Setting(name).empty()) address_.settings.emplace_back(name, value);
    }

    void Encrypt() {
        const std::string mode = Or("sslmode", "PGSSLMODE");
        if (mode.starts_with("require") || mode.starts_with("verify")) return;
        if (mode != "disable") {
            std::erase_if(address_.settings, [](const auto& setting) { return setting.first == "sslmode"; });
            address_.settings.emplace_back("sslmode", "require");
            return;
        }
        if (!Environment("PGPASSWORD").empty())
            Refuse("A password would go to another machine without encryption: leave sslmode=disable out.");
        std::erase_if(address_.settings, [](const auto& setting) { return setting.first == "passfile"; });
        address_.settings.emplace_back("passfile", "/dev/null/none");  // /dev/null itself brings a warning
    }

    ServerAddress address_;
};

}  // namespace

bool IsServerAddress(const std::string& source) {
    return source.starts_with("postgresql://") || source.starts_with("postgres://");
}

ServerAddress ReadServerAddress(const std::string& source) {
    const std::string uri = source.substr(0, source.rfind('/'));
    return Reader(uri).Read(uri);
}

}  // namespace ado
