#pragma once

#include <QtGlobal>

#include <memory>

class PreviewContent;
class QDataStream;

/// Contents as bytes of an answer.
namespace ContentBytes {

/// Writes any kind, or that there is none.
void write(QDataStream &out, const PreviewContent *content);

/// Whether the stream holds a content, or none, within every bound that a view relies on. Takes no
/// more memory than a few times what the stream holds.
[[nodiscard]] bool read(QDataStream &in, std::shared_ptr<const PreviewContent> *content);

} // namespace ContentBytes
