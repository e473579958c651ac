#pragma once

#include <QObject>

class QCheckBox;
class QLineEdit;
class SettingsStore;

/// Whether copied pictures are kept, and up to which size: a box and a field beside it, which the
/// General pane shows. Nothing is stored before the user chooses something. Owned by the pane's
/// controller; the two widgets belong to whoever puts them into a window.
class PictureChoice : public QObject
{
    Q_OBJECT

public:
    /// In megabytes of a million bytes each.
    static constexpr int kDefaultSize = 10;
    static constexpr int kMaxSize = 64;

    /// `settings` must outlive this object.
    explicit PictureChoice(SettingsStore &settings);

    /// Shows what is stored.
    void load();
    /// Largest picture that is kept, in bytes, as the controls show it; 0 when none is kept.
    qint64 maxBytes() const;
    /// Has the limit ready to be changed.
    void selectSize();

    QCheckBox *box;
    QLineEdit *size;

Q_SIGNALS:
    void changed();

private:
    void boxClicked();
    void sizeEdited();
    void sizeLeft();

    SettingsStore &m_settings;
    int m_size = kDefaultSize; ///< The last one that stood in the field.
};
