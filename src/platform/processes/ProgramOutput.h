#pragma once

#include <QByteArray>
#include <QStringList>

#include <chrono>
#include <optional>
#include <stop_token>

namespace Kovrel {

namespace ProgramOutput {

constexpr qsizetype most = 1 << 16; // bytes

// What a program prints, in no language, until its end. None where it can't be started, fails, prints more than `most`,
// or is stopped or not done in time: then it is killed. Not for the main thread.
std::optional<QByteArray> of(const QString& program, const QStringList& arguments, std::chrono::milliseconds patience,
                             std::stop_token stop = {});

} // namespace ProgramOutput

} // namespace Kovrel
