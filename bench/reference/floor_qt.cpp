// The toolkit's floor: the least clipboard history that Qt's own classes make. QClipboard records,
// QListView with a filter proxy lists, Return pastes. Like the bare xcb reference it has no store
// and no good manners; the grab and the keystroke go through Qt's own X connection. Commands on
// standard input: "count" and "last".
//
//   floor_qt [FILE]    FILE: one text a line, the history to start with

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QSocketNotifier>
#include <QSortFilterProxyModel>
#include <QStringListModel>
#include <QTextStream>
#include <QVBoxLayout>

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

namespace {

constexpr xcb_keycode_t kKeyV = 55;
constexpr xcb_keycode_t kKeyControl = 37;
constexpr uint16_t kHotKeyModifiers = XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT;

class Window : public QWidget, public QAbstractNativeEventFilter
{
public:
    explicit Window(const QStringList &texts) : m_model(texts)
    {
        m_connection = qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        xcb_grab_key(m_connection, 1, m_root, kHotKeyModifiers, kKeyV, XCB_GRAB_MODE_ASYNC,
                     XCB_GRAB_MODE_ASYNC);
        qApp->installNativeEventFilter(this);

        setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        resize(700, 486);
        m_proxy.setSourceModel(&m_model);
        m_proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
        m_list.setModel(&m_proxy);
        m_list.setUniformItemSizes(true);
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(&m_field);
        layout->addWidget(&m_list);
        connect(&m_field, &QLineEdit::textChanged, this, [this](const QString &text) {
            m_proxy.setFilterFixedString(text);
            m_list.setCurrentIndex(m_proxy.index(0, 0));
        });
        connect(&m_field, &QLineEdit::returnPressed, this, [this] { paste(); });
        connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] { record(); });
        winId();
    }

    int recorded() const { return m_recorded; }
    QString last() const { return m_model.stringList().value(0); }

    bool nativeEventFilter(const QByteArray &, void *message, qintptr *) override
    {
        const auto *event = static_cast<xcb_generic_event_t *>(message);
        if ((event->response_type & 0x7F) != XCB_KEY_PRESS)
            return false;
        const auto *press = reinterpret_cast<const xcb_key_press_event_t *>(event);
        if (press->detail != kKeyV || (press->state & kHotKeyModifiers) != kHotKeyModifiers)
            return false;
        m_list.setCurrentIndex(m_proxy.index(0, 0));
        show();
        raise();
        activateWindow();
        m_field.setFocus();
        return true;
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Escape) {
            hide();
            m_field.clear();
        }
    }

private:
    void record()
    {
        const QClipboard *clipboard = QGuiApplication::clipboard();
        const QString text = clipboard->text();
        if (clipboard->ownsClipboard() || text.isEmpty())
            return;
        m_model.insertRow(0);
        m_model.setData(m_model.index(0), text);
        ++m_recorded;
    }

    void paste()
    {
        const QString text = m_list.currentIndex().data().toString();
        hide();
        m_field.clear();
        QGuiApplication::clipboard()->setText(text);
        xcb_flush(m_connection);
        QMetaObject::invokeMethod(
            this, [this] { waitForTarget(); }, Qt::QueuedConnection);
    }

    void waitForTarget()
    {
        // The window manager gives the keyboard back by itself; type as soon as it has.
        for (int i = 0; i < 500; ++i) {
            xcb_get_input_focus_reply_t *focus =
                xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr);
            const bool isBack = focus && focus->focus > 1 && focus->focus != winId();
            std::free(focus);
            if (isBack)
                break;
        }
        for (const auto &[type, key] : {std::pair{XCB_KEY_PRESS, kKeyControl},
                                        {XCB_KEY_PRESS, kKeyV},
                                        {XCB_KEY_RELEASE, kKeyV},
                                        {XCB_KEY_RELEASE, kKeyControl}})
            xcb_test_fake_input(m_connection, type, key, XCB_CURRENT_TIME, m_root, 0, 0, 0);
        xcb_flush(m_connection);
    }

    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_root = 0;
    int m_recorded = 0;
    QStringListModel m_model;
    QSortFilterProxyModel m_proxy;
    QLineEdit m_field;
    QListView m_list;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QStringList texts;
    QFile file(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (file.open(QIODevice::ReadOnly))
        texts = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    Window window(texts);
    QSocketNotifier commands(0, QSocketNotifier::Read);
    QObject::connect(&commands, &QSocketNotifier::activated, &window, [&] {
        std::string command;
        if (!std::getline(std::cin, command)) {
            QApplication::quit();
            return;
        }
        std::cout << (command == "count" ? std::to_string(window.recorded())
                                         : window.last().toStdString())
                  << std::endl;
    });
    std::fputs("ready\n", stderr);
    return QApplication::exec();
}
