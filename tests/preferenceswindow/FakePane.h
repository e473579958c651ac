#pragma once

#include "preferenceswindow/CCNPreferencesWindowControllerProtocol.h"

#include <QWidget>

/// A pane of a given size that is one dark area.
class FakePane : public CCNPreferencesWindowControllerProtocol
{
public:
    FakePane(const QString &identifier, const QString &title, QSize size)
        : m_identifier(identifier), m_title(title)
    {
        m_view.resize(size);
        m_view.setPalette(QPalette(Qt::black, Qt::black));
        m_view.setAutoFillBackground(true);
    }

    // ^CCNPreferencesWindowControllerProtocol
    QString preferenceIdentifier() const override { return m_identifier; }
    QString preferenceTitle() const override { return m_title; }
    QIcon preferenceIcon() const override { return {}; }
    QWidget *view() override { return &m_view; }

private:
    QString m_identifier;
    QString m_title;
    QWidget m_view;
};
