#pragma once

#include <QWidget>

#include <functional>

class QLineEdit;

/// Something for the desktop's configuration, which the user cannot be expected to type: shown as
/// it is, with a button that copies it. Owned by the pane.
class ConfigurationLine : public QWidget
{
    Q_OBJECT

public:
    using Copy = std::function<void(const QString &)>;

    /// `about` is what assistive technology says of the line.
    ConfigurationLine(const QString &about, Copy copy);

    /// May be several lines, which are shown as one.
    void setText(const QString &text);

private:
    const Copy m_copy;
    QLineEdit *m_field;
    QString m_text;
};
