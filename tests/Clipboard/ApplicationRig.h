#pragma once

#include "Clipboard/AppDelegate.h"
#include "Clipboard/settings/SettingsKeys.h"
#include "history/ClipItem.h"
#include "platform/memory/MemoryPlatform.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

/// The real application on a platform of fakes.
class ApplicationRig : public testing::Test
{
protected:
    enum class User { Newcomer, Welcomed };

    explicit ApplicationRig(User user = User::Welcomed)
    {
        if (user == User::Welcomed)
            memory.settings.setValue(SettingsKeys::kWelcomeWindowShown, true);
    }

    static Info info()
    {
        return {QStringLiteral("org.example.Test"), QStringLiteral("7.8"), QStringLiteral("7.8")};
    }

    AppDelegate &start()
    {
        application = std::make_unique<AppDelegate>(memory.platform, info(), folder.path());
        application->applicationDidFinishLaunching();
        return *application;
    }

    void copy(const QString &text)
    {
        memory.pasteboard.copyFromOutside({{text}, QStringLiteral("Editor")});
    }

    QStringList clips() const
    {
        QStringList texts;
        for (const auto &item : application->getClipItemArr())
            texts.append(item->strValue().value_or(QString()));
        return texts;
    }

    QTemporaryDir folder;
    MemoryPlatform memory;
    std::unique_ptr<AppDelegate> application;
};
