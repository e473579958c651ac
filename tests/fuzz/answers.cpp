/// What the application takes from the process that reads files for its previews, whatever that
/// sends. Kept inputs: tests/data/fuzz/answers.

#include "preview/PreviewMessages.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto answer = PreviewMessages::decodedAnswer(bytes);
    // A content that is taken is one that could have been sent.
    if (answer && !PreviewMessages::decodedAnswer(PreviewMessages::encoded(*answer)))
        std::abort();
    static_cast<void>(PreviewMessages::decodedOrder(bytes));
    return 0;
}
