#include "engine/SendQueue.h"

#include "base/Log.h"
#include "engine/WireFormat.h"

#include <algorithm>

namespace lumeroom {

namespace {

constexpr Seconds kPause(0.1);
constexpr std::size_t kRepeatedPollsAllowedBelow = 30;
constexpr std::size_t kSocketsAwaitingReply = 10;
constexpr int kProbeEvery = 10;
constexpr int kPromptProbesAtFirst = 10;
constexpr int kPromptProbesForAnAnswer = 3; // enough to find the next lamp and to hear it
constexpr int kMostPromptProbes = 20;

std::string keyOf(const QueueEntry& poll)
{
    std::string key = poll.address;
    key.push_back('\0');
    key.append(poll.data.begin(), poll.data.end());
    return key;
}

} // namespace

void SendQueue::Line::appendPoll(QueueEntry entry)
{
    std::string key = keyOf(entry);
    m_entries.push_back(std::move(entry));
    m_polls.insert_or_assign(std::move(key), std::prev(m_entries.end()));
}

bool SendQueue::Line::renew(const QueueEntry& poll)
{
    const auto found = m_polls.find(keyOf(poll));
    if (found == m_polls.end())
        return false;
    if (poll.socket)
        found->second->socket = poll.socket;
    return true;
}

QueueEntry SendQueue::Line::takeFirst()
{
    const auto first = m_entries.begin();
    const auto found = m_polls.find(keyOf(*first));
    if (found != m_polls.end() && found->second == first)
        m_polls.erase(found);
    QueueEntry entry = std::move(*first);
    m_entries.pop_front();
    return entry;
}

SendQueue::SendQueue(Pacer& pacer, Log& log)
    : m_pacer(pacer)
    , m_log(log)
    , m_promptProbes(kPromptProbesAtFirst)
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
    m_queue.append(std::move(entry));
}

bool SendQueue::appendPoll(QueueEntry entry)
{
    const std::lock_guard lock(m_arrayLock);
    if (m_queue.size() >= kRepeatedPollsAllowedBelow && m_queue.renew(entry))
        return false;
    m_queue.appendPoll(std::move(entry));
    return true;
}

bool SendQueue::appendProbe(QueueEntry entry)
{
    const std::lock_guard lock(m_arrayLock);
    if (m_probes.renew(entry))
        return false;
    m_probes.appendPoll(std::move(entry));
    return true;
}

void SendQueue::probeWasAnswered()
{
    const std::lock_guard lock(m_arrayLock);
    m_promptProbes = std::min(m_promptProbes + kPromptProbesForAnAnswer, kMostPromptProbes);
}

std::size_t SendQueue::size() const
{
    const std::lock_guard lock(m_arrayLock);
    return m_queue.size() + m_probes.size();
}

Seconds SendQueue::pass()
{
    const std::lock_guard lock(m_arrayLock);
    if (Line& line = nextLine(); !line.empty()) {
        if (m_log.shows(3))
            m_log.line("unqueueing");
        send(line.takeFirst());
    }
    return kPause;
}

SendQueue::Line& SendQueue::nextLine()
{
    if (m_probes.empty())
        return m_queue;
    const bool probesTurn = m_queue.empty() || m_promptProbes > 0 || ++m_sinceProbe >= kProbeEvery;
    if (!probesTurn)
        return m_queue;
    m_sinceProbe = 0;
    m_promptProbes = std::max(m_promptProbes - 1, 0);
    return m_probes;
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
