#pragma once

#include "base/Pacer.h"
#include "engine/UdpSocket.h"

#include <deque>
#include <mutex>
#include <vector>

namespace lumeroom {

class Log;

/// A finished datagram that waits for its turn.
struct QueueEntry {
    std::shared_ptr<UdpSocket> socket;
    std::string address;
    Datagram data;

    bool operator==(const QueueEntry&) const = default;
};

/// The one place where datagrams are paced: first in, first out, one each tenth of a second.
/// What must reach a lamp at once does not come by here.
class SendQueue {
public:
    SendQueue(Pacer& pacer, Log& log);

    /// Starts emptying the queue, on a thread of its own.
    void startQueingSystem();
    /// Appends a message that must not be lost.
    void append(QueueEntry entry);
    /// Appends a poll. Once ten seconds' worth is waiting, a poll that already waits is not asked
    /// twice: with many lamps the heartbeat asks for more than the queue can send, and without this
    /// the queue would grow, and answers age, for as long as the program runs.
    void appendPoll(QueueEntry entry);

    std::size_t size() const;

private:
    Seconds pass();
    void send(const QueueEntry& entry);

    Pacer& m_pacer;
    Log& m_log;
    bool m_queueRunning = false;
    mutable std::mutex m_arrayLock;
    std::deque<QueueEntry> m_queue;
    /// The sockets of the last second's sends, so that one that nobody else holds any more can
    /// still take in the reply.
    std::deque<std::shared_ptr<UdpSocket>> m_awaitingReply;
    std::vector<std::unique_ptr<PacedTask>> m_tasks;
};

} // namespace lumeroom
