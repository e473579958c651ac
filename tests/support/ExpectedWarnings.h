#pragma once

#include <QString>
#include <QStringList>

/// Collects what is logged during a test. A warning or worse that no test expects fails the test.
namespace ExpectedWarnings {

/// A warning that contains `text` is expected, once, in the running test; the test fails when it
/// does not come.
void expect(const QString &text);

/// Everything logged since the test began, one entry a message.
QStringList messages();

} // namespace ExpectedWarnings
