#include "Clipboard/ConsentNotice.h"

#include "platform/Capabilities.h"
#include "platform/Consent.h"

#include <algorithm>

ConsentNotice::ConsentNotice(Consent &consent, const Capabilities &capabilities)
    : m_consent(consent), m_capabilities(capabilities)
{
    connect(&m_consent, &Consent::stateChanged, this, &ConsentNotice::changed);
    connect(&m_capabilities, &Capabilities::changed, this, &ConsentNotice::changed);
}

bool ConsentNotice::canConcern() const
{
    return m_consent.state() != Consent::State::NotNeeded;
}

QString ConsentNotice::text() const
{
    if (!canConcern())
        return {};
    const auto recording =
        std::ranges::find(m_capabilities.all(), Capability::Kind::Recording, &Capability::kind);
    // Some desktops need the consent for pasting alone.
    if (recording == m_capabilities.all().end() || recording->state == Capability::State::Works)
        return {};
    return tr("Nothing is recorded. %1").arg(Capabilities::reasonOf(*recording));
}

bool ConsentNotice::canAsk() const
{
    return m_consent.isWanted() && !text().isEmpty();
}

void ConsentNotice::ask()
{
    m_consent.ask();
}
