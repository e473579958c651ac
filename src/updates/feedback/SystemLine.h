#pragma once

#include <QString>

struct Info;

/// The one line about the user's system that a message may carry: the program's version and the
/// name of the desktop, such as "Quillmarsh 1.0.0 on XFCE (x11)".
QString systemLine(const Info &info);
