#pragma once

#include "Clipboard/preview/FileAttributes.h"
#include "looks/ClipColors.h"
#include "preview/PreviewTrouble.h"

#include <QPixmap>
#include <QWidget>

/// Shows any file as a plain card: its icon, name, kind, size and date. Owned by its FilePreview.
class FileCard : public QWidget
{
    Q_OBJECT

public:
    FileCard(QString path, QWidget *parent);

    /// The lines under the file's name; empty before they were read.
    const QStringList &lines() const { return m_lines; }

    /// Tells what is known of the file; none when it does not exist. And why there is only this
    /// card, where that is not the file's kind.
    void setAttributes(const std::optional<FileAttributes> &attributes, PreviewTrouble trouble);

    void setColors(const ClipColors &colors);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void updatePicture();
    static QString sentence(PreviewTrouble trouble);

    const QString m_path;
    FileAttributes m_attributes;
    QStringList m_lines;
    ClipColors m_colors;
    QPixmap m_picture;
};
