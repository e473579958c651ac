#pragma once

#include <QApplication>
#include <QValidator>

#include <functional>

/// Lets nothing but decimal digits, of whatever script, into a field; a refused key press beeps.
/// Owned by the field it is installed on. An empty field is fine while somebody types; there is no
/// sign and no limit to the length.
class OnlyIntegerNumberFormatter : public QValidator
{
    Q_OBJECT

public:
    explicit OnlyIntegerNumberFormatter(QObject *parent = nullptr,
                                        std::function<void()> beep = &QApplication::beep);

    /// Whether `partialString` may stand in the field; beeps when it may not.
    bool isPartialStringValid(const QString &partialString) const;

    /// The number that the leading digits stand for; what is too large to be told counts as the
    /// largest there is, and no digits as 0.
    static qint64 integerValue(const QString &text);

    // ^QValidator
    State validate(QString &input, int &position) const override;

private:
    std::function<void()> m_beep;
};
