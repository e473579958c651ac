#pragma once

class PreviewBody;
class PreviewContent;
class PreviewRegistry;
class QString;
class QWidget;

/// Which widget shows which content.
namespace PreviewBodies {

/// A widget that shows what was read of the file at `path`, a child of `parent`; on the main
/// thread, within a frame. What it still has to read it asks `registry` for, which must outlive it.
PreviewBody *make(const PreviewContent &content, const QString &path, PreviewRegistry &registry,
                  QWidget *parent);

} // namespace PreviewBodies
