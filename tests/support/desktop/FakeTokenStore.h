#pragma once

#include "platform/TokenStore.h"
#include "tests/support/desktop/FakeAnswers.h"

#include <map>

namespace Kovrel::Testing {

class FakeTokenStore : public TokenStore {
public:
    explicit FakeTokenStore(MainLoop& loop) : answers(loop) {}

    std::map<QString, QString> tokens;
    bool isWritable = true;
    FakeAnswers answers;

    void read(const QString& key, Reply<std::optional<QString>> reply) override
    {
        answers.give(std::move(reply), [this, key] {
            const auto found = tokens.find(key);
            return found == tokens.end() ? std::nullopt : std::optional(found->second);
        });
    }

    void write(const QString& key, const QString& token, Reply<Stored> reply) override
    {
        if (isWritable)
            tokens[key] = token;
        answers.give(std::move(reply), [this] { return isWritable ? Stored() : std::unexpected(QString("locked")); });
    }

    void remove(const QString& key, Reply<bool> reply) override
    {
        if (isWritable)
            tokens.erase(key);
        answers.give(std::move(reply), [this] { return isWritable; });
    }
};

} // namespace Kovrel::Testing
