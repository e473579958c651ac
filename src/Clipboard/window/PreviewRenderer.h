#pragma once

#include <QString>
#include <QWidget>

struct ClipColors;

/// A view of one file, made fresh for each file that is shown. Owned by its parent widget.
class PreviewView : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Shows the file as it is now. Returns at once; what must be read is read off the main thread
    /// and shown when it has come.
    virtual void refresh() = 0;

    virtual void setColors(const ClipColors &colors) = 0;
};

/// Knows how to show files of some kinds. Owned by FileViewController.
class PreviewRenderer
{
public:
    PreviewRenderer() = default;
    PreviewRenderer(const PreviewRenderer &) = delete;
    PreviewRenderer &operator=(const PreviewRenderer &) = delete;
    virtual ~PreviewRenderer() = default;

    /// An empty view for the file at `path`, a child of `parent`. The file itself is not touched
    /// before the view's refresh().
    virtual PreviewView *makeView(const QString &path, QWidget *parent) = 0;
};
