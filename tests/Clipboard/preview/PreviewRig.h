#pragma once

#include "Clipboard/preview/FilePreview.h"
#include "Clipboard/preview/PreviewBody.h"
#include "Clipboard/preview/PreviewRegistry.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

/// Reads files as the pane does, without showing them.
class PreviewRig : public testing::Test
{
protected:
    static QString sample(const char *name)
    {
        return QStringLiteral(TEST_DATA_DIR "/preview/") + QString::fromLatin1(name);
    }

    QString write(const QString &name, const QByteArray &content)
    {
        const QString path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
        return path;
    }

    PreviewResult read(const QString &path, QSize pixels = QSize(512, 512))
    {
        std::optional<PreviewResult> got;
        const FileTicket ticket =
            registry.ask(path, pixels, [&got](const PreviewResult &result) { got = result; });
        EXPECT_TRUE(QTest::qWaitFor([&got] { return got.has_value(); }, kBoundMs))
            << path.toStdString();
        return got.value_or(PreviewResult());
    }

    /// The content as its reader made it; null for any other.
    template <typename Content>
    std::shared_ptr<const Content> readAs(const QString &path, QSize pixels = QSize(512, 512))
    {
        return std::dynamic_pointer_cast<const Content>(read(path, pixels).content);
    }

    /// A view of the file, once it shows what its reader made of it.
    std::unique_ptr<FilePreview> shown(const QString &path, QSize size)
    {
        auto view = std::make_unique<FilePreview>(registry, path, nullptr);
        view->resize(size);
        view->show();
        view->refresh();
        EXPECT_TRUE(QTest::qWaitFor([&view] { return view->body() != nullptr; }));
        return view;
    }

    /// Within which even a hostile file is told; generous, for a sanitized run on a busy machine.
    static constexpr int kBoundMs = 8000;

    QTemporaryDir folder;
    FileQuestions questions;
    PreviewRegistry registry{questions};
};
