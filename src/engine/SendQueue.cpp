#include "engine/SendQueue.h"

#include "base/Log.h"
#include "engine/WireFormat.h"

#include <algorithm>

namespace lumeroom {

namespace {

constexpr Seconds kPause(0.1);
constexpr std::size_t kRepeatedPollsAllowedBelow = 30;
constexpr std::size_t kSocketsAwaitingReply = 10;

} // namespace

SendQueue::SendQueue(Pacer& pacer, Log& log)
    : m_pacer(pacer)
    , m_log(log)
{
}

void SendQueue::startQueingSystem()
{
    if (m_queueRunning)
        m_log.line("attempt to start queue while already running!");
    m_queueRunning = true;
    m_tasks.push_back(m_pacer.start("send queue", [this] { return pass(); }));
}

void SendQueue::append(QueueEntry entry)
{
    const std::lock_guard lock(m_arrayLock);
    m_queue.push_back(std::move(entry));
}

void SendQueue::appendPoll(QueueEntry entry)
{
    const std::lock_guard lock(m_arrayLock);
    if (m_queue.size() >= kRepeatedPollsAllowedBelow
        && std::find(m_queue.begin(), m_queue.end(), entry) != m_queue.end())
        return;
    m_queue.push_back(std::move(entry));
}

std::size_t SendQueue::size() const
{
    const std::lock_guard lock(m_arrayLock);
    return m_queue.size();
}

Seconds SendQueue::pass()
{
    const std::lock_guard lock(m_arrayLock);
    if (!m_queue.empty()) {
        if (m_log.shows(3))
            m_log.line("unqueueing");
        send(m_queue.front());
        m_queue.pop_front();
    }
    return kPause;
}

void SendQueue::send(const QueueEntry& entry)
{
    if (!entry.socket || entry.address.empty() || entry.data.empty())
        return;
    entry.socket->sendDataToHost(entry.data, entry.address, wire::kLampPort);
    const auto error = entry.socket->beginReceiving();
    if (error && m_log.shows(1))
        m_log.line("Error sending packet: {}", error->text);

    m_awaitingReply.push_back(entry.socket);
    if (m_awaitingReply.size() > kSocketsAwaitingReply)
        m_awaitingReply.pop_front();
}

} // namespace lumeroom
