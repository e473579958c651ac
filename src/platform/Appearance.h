#pragma once

#include <QColor>
#include <QObject>

#include <optional>

/// How the desktop's user wants programs to look. Owned by Platform; used from the main thread.
/// What a desktop does not say is unspecified or absent, and so is everything until it has
/// answered: nobody waits for it.
class Appearance : public QObject
{
    Q_OBJECT

public:
    enum class ColorScheme { Unspecified, Dark, Light };

    using QObject::QObject;

    virtual ColorScheme colorScheme() const = 0;

    /// The colour that the user has chosen for what is selected; opaque.
    virtual std::optional<QColor> accentColor() const = 0;

Q_SIGNALS:
    /// One of the answers above has become another.
    void changed();
};
