#pragma once

#include "preview/PreviewMessages.h"

#include <functional>

class Patience;
class PreviewFile;

/// What the program does that reads files for previews, once it is kept apart: one order after the
/// other, each of one open file, until the application goes.
namespace PreviewService {

/// What the program inherits the socket as.
constexpr int kSocket = 3;

/// The exit codes that tell the application why there is no answer.
constexpr int kNotApart = 3;
constexpr int kOutOfMemory = 4;

using Decode = std::function<PreviewAnswer(const PreviewOrder &, PreviewFile &, const Patience &)>;

/// Serves until the other end is closed. An order is given up when anything else comes meanwhile.
void run(int socket, const Decode &decode);

} // namespace PreviewService
