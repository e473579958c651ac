#pragma once

#include "Clipboard/preview/PreviewBody.h"
#include "looks/FileIcons.h"
#include "preview/ListContent.h"

class QLabel;
class QListWidget;

/// Shows what a folder or an archive holds.
class ListBody : public PreviewBody
{
    Q_OBJECT

public:
    ListBody(const ListContent &content, QWidget *parent);

    /// The line above the list.
    static QString summed(const ListCount &count);

    // ^PreviewBody
    void setColors(const ClipColors &colors) override;
    QScrollBar *scrollBar() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QLabel *m_summary;
    QListWidget *m_list;
    FileIcons m_icons;
};
