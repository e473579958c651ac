#pragma once

#include "Clipboard/window/ClipColors.h"
#include "Clipboard/window/FileFacts.h"
#include "Clipboard/window/PreviewRenderer.h"

#include <QPixmap>

/// Shows any file as a plain card: its icon, name, kind, size and date.
class FileCardRenderer : public PreviewRenderer
{
public:
    // ^PreviewRenderer
    PreviewView *makeView(const QString &path, QWidget *parent) override;
};

/// The card of one file.
class FileCard : public PreviewView
{
    Q_OBJECT

public:
    FileCard(QString path, QWidget *parent);

    /// The lines under the file's name; empty before they were read.
    const QStringList &lines() const { return m_lines; }

    // ^PreviewView
    void refresh() override;
    void setColors(const ClipColors &colors) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void receive(const std::optional<FileFacts> &facts);
    void updatePicture();

    const QString m_path;
    FileFacts m_facts;
    QStringList m_lines;
    ClipColors m_colors;
    QPixmap m_picture;
};
