#pragma once

#include "preview/PreviewMessages.h"

class Patience;
class PreviewFile;

/// All readers, and who of them reads what. For the program that is kept apart, and for tests.
namespace Decoders {

/// Loads what readers would else open when they are used first: plug-ins, and fonts for the texts
/// of drawings. Needs a QGuiApplication.
void prepare();

/// Does what was asked. The first reader that accepts the type and can read the file has it.
PreviewAnswer answer(const PreviewOrder &order, PreviewFile &file, const Patience &patience);

} // namespace Decoders
