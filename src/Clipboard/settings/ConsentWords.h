#pragma once

#include <QString>

/// What people are told before a desktop asks them whether Quillmarsh may see copies and paste,
/// wherever they are told it.
namespace ConsentWords {

/// What the desktop is going to ask, why it asks so much, and what comes of it.
QString explanation();

} // namespace ConsentWords
