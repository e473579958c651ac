#pragma once

#include <QAbstractButton>
#include <QList>
#include <QWidget>

/// A row of equal segments of which one is selected: the switcher in the middle of a preferences
/// toolbar. Owned by the toolbar that shows it. Its size follows from its titles and never from
/// the space there is.
class CCNSegmentedControl : public QWidget
{
    Q_OBJECT

public:
    explicit CCNSegmentedControl(const QStringList &titles, QWidget *parent = nullptr);

    int segmentCount() const { return static_cast<int>(m_segments.size()); }
    /// Width of each segment, in points.
    int segmentWidth() const { return m_segmentSize.width(); }
    QString label(int segment) const;
    /// The index of the pane that a segment stands for.
    int tag(int segment) const { return segment; }

    /// The selected segment; -1 when there is none.
    int selectedSegment() const;
    /// Selects without reporting it; an index outside the segments is ignored.
    void setSelectedSegment(int segment);

    // ^QWidget
    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user chose another segment.
    void segmentClicked(int segment);

private:
    void measure(const QStringList &titles);

    QSize m_segmentSize;
    bool m_isSelecting = false; ///< By the program, not by the user.
    QList<QAbstractButton *> m_segments;
};
