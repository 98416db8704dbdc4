#include "strips/StripPlayer.h"

#include "strips/StripCaption.h"

#include <utility>

namespace lumeroom {

void StripPlayer::play(const std::string& name, LampControlStrip& strip)
{
    auto effect = m_owner.makeEffect(name, strip);
    if (!effect)
        return;
    stop();
    m_runner = std::move(effect);
    m_runner->start();
    m_caption.setEffect(name);
}

void StripPlayer::stop()
{
    if (m_runner)
        m_runner->stop();
    m_caption.setEffect({});
}

} // namespace lumeroom
