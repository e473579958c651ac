#pragma once

#include <QString>

/// Keys by the names of their symbols, as configurations and portals write them.
namespace KeySymbols {

/// The name of the symbol that the key has on the American keyboard, which the virtual key codes
/// describe. Empty for a number that is no key.
QString americanName(quint32 keyCode);

/// The name of what is printed on the key; where that is nothing, or none that has a name, the
/// American one.
QString nameOf(quint32 keyCode, const QString &printed);

} // namespace KeySymbols
