#pragma once

#include "platform/Reply.h"

#include <QString>

#include <expected>
#include <optional>

namespace Kovrel {

// A store of secrets. Every answer comes within the store's own deadline, also from a locked or dead service.
class TokenStore {
public:
    using Stored = std::expected<void, QString>; // the error is one line for people

    virtual ~TokenStore() = default;

    // No value: nothing stored under the key, or the store did not answer (logged).
    virtual void read(const QString& key, Reply<std::optional<QString>> reply) = 0;
    virtual void write(const QString& key, const QString& token, Reply<Stored> reply) = 0;
    virtual void remove(const QString& key, Reply<bool> reply) = 0;
};

} // namespace Kovrel
