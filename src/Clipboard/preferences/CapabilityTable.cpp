#include "Clipboard/preferences/CapabilityTable.h"

#include "Clipboard/settings/ConsentWords.h"
#include "looks/PaneParts.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace {

constexpr int kColumnSpace = 10;
constexpr int kRowSpace = 4;

QString nameOf(Capability::Kind kind)
{
    switch (kind) {
    case Capability::Kind::Recording:
        return CapabilityTable::tr("Recording:");
    case Capability::Kind::Shortcuts:
        return CapabilityTable::tr("Shortcuts:");
    case Capability::Kind::Pasting:
        return CapabilityTable::tr("Pasting:");
    case Capability::Kind::WindowPlace:
        break;
    }
    return CapabilityTable::tr("Window’s place:");
}

QString nameOf(Capability::State state)
{
    switch (state) {
    case Capability::State::Works:
        return CapabilityTable::tr("works");
    case Capability::State::WorksAfter:
        return CapabilityTable::tr("needs a step of yours");
    case Capability::State::Withheld:
        break;
    }
    return CapabilityTable::tr("withheld");
}

} // namespace

CapabilityTable::CapabilityTable(ConfigurationLine::Copy copy)
    : m_copy(std::move(copy)), m_grid(new QGridLayout),
      m_copyAll(new QPushButton(tr("Copy all lines for the configuration"))),
      m_question(new QWidget)
{
    setObjectName(QStringLiteral("capabilityTable"));
    m_grid->setHorizontalSpacing(kColumnSpace);
    m_grid->setVerticalSpacing(kRowSpace);
    m_grid->setColumnStretch(2, 1);
    m_copyAll->setAutoDefault(false);
    connect(m_copyAll, &QPushButton::clicked, this, [this] { m_copy(m_configuration); });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 2 * kRowSpace);
    layout->setSpacing(2 * kRowSpace);
    layout->addWidget(new PaneSeparator);
    layout->addLayout(m_grid);
    layout->addWidget(m_copyAll, 0, Qt::AlignLeft);
    layout->addWidget(m_question);
    auto *ask = new QPushButton(tr("Have the Desktop &Ask…"));
    ask->setAutoDefault(false);
    connect(ask, &QPushButton::clicked, this, &CapabilityTable::askingWanted);
    auto *question = new QVBoxLayout(m_question);
    question->setContentsMargins(0, 0, 0, 0);
    question->addWidget(new PaneNote(ConsentWords::explanation()));
    question->addWidget(ask, 0, Qt::AlignLeft);
    m_question->hide();
    hide();
}

void CapabilityTable::show(const Capabilities &capabilities, const QString &configuration)
{
    if (std::exchange(m_shown, capabilities.all()) == capabilities.all() &&
        m_configuration == configuration)
        return;
    while (const QLayoutItem *item = m_grid->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    int row = 0;
    for (const Capability &capability : capabilities.all()) {
        const bool works = capability.state == Capability::State::Works;
        auto *state = new PaneNote(nameOf(capability.state));
        state->setWordWrap(false);
        state->setEmphasised(!works);
        QStringList sentences{Capabilities::reasonOf(capability),
                              Capabilities::remedyOf(capability)};
        sentences.removeAll(QString());
        m_grid->addWidget(new PaneNote(nameOf(capability.kind)), row, 0, Qt::AlignTop);
        m_grid->addWidget(state, row, 1, Qt::AlignTop);
        m_grid->addWidget(new PaneNote(sentences.join(u' ')), row++, 2);
        if (capability.kind == Capability::Kind::Shortcuts || capability.configuration.isEmpty())
            continue;
        auto *line = new ConfigurationLine(nameOf(capability.kind), m_copy);
        line->setText(capability.configuration);
        m_grid->addWidget(line, row++, 1, 1, 2, Qt::AlignLeft);
    }
    // They have come into a pane that may be shown already.
    for (QWidget *part : findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (part != m_question)
            part->show();
    }
    m_configuration = configuration;
    m_copyAll->setVisible(!configuration.isEmpty());
    setVisible(!capabilities.doAllWork());
}

void CapabilityTable::offerToAsk(bool isOffered)
{
    m_question->setVisible(isOffered);
}
