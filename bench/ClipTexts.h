#pragma once

#include <QString>

#include <random>

/// The clips that benchmarks work on: sentences of everyday words, each clip about 200 bytes and
/// different from every other. The same number gives the same clip in every run.
inline QString benchClipText(int number)
{
    static const char *const kWords[] = {
        "the",    "meeting", "moved",  "to",       "Thursday", "invoice", "please", "check",
        "server", "error",   "commit", "password", "window",   "https",   "report", "Straße",
        "and",    "answer",  "budget", "customer", "delivery", "example", "future", "garden"};
    std::mt19937 random(static_cast<unsigned>(number));
    QString text = QStringLiteral("clip %1:").arg(number);
    while (text.size() < 195)
        text += u' ' + QString::fromUtf8(kWords[random() % std::size(kWords)]);
    return text;
}
