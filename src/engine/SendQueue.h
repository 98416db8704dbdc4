#pragma once

#include "base/Pacer.h"
#include "engine/UdpSocket.h"

#include <deque>
#include <list>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace lumeroom {

class Log;

/// A finished datagram that waits for its turn.
struct QueueEntry {
    std::shared_ptr<UdpSocket> socket;
    std::string address;
    Datagram data;
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
    /// Appends a poll; false if it was not needed. Once three seconds' worth is waiting, a poll
    /// that already waits is not asked twice: it keeps its place and leaves by the newer socket.
    /// With many lamps the heartbeat asks for more than the queue can send, and without this the
    /// queue would grow, and answers age, for as long as the program runs.
    bool appendPoll(QueueEntry entry);
    /// Appends a poll of an address from which no answer is to be expected. It waits until nothing
    /// else does, but every tenth datagram is such a poll, so that none waits for ever. None is
    /// asked twice; false if it was not needed.
    bool appendProbe(QueueEntry entry);
    /// A probe found a lamp: the next few go out at once, since there may be more. So a house full
    /// of lamps is found at full pace, and forged senders still get a tenth of it.
    void probeWasAnswered();

    /// What waits, of both kinds.
    std::size_t size() const;

private:
    /// Entries in order, with a look-up of those that are polls.
    class Line {
    public:
        bool empty() const { return m_entries.empty(); }
        std::size_t size() const { return m_entries.size(); }
        void append(QueueEntry entry) { m_entries.push_back(std::move(entry)); }
        void appendPoll(QueueEntry entry);
        /// Gives a poll that waits already the newer one's socket; false if none does.
        bool renew(const QueueEntry& poll);
        QueueEntry takeFirst();

    private:
        std::list<QueueEntry> m_entries;
        /// By address and data; of several that are alike, the last.
        std::unordered_map<std::string, std::list<QueueEntry>::iterator> m_polls;
    };

    Seconds pass();
    Line& nextLine();
    void send(const QueueEntry& entry);

    Pacer& m_pacer;
    Log& m_log;
    bool m_queueRunning = false;
    mutable std::mutex m_arrayLock;
    Line m_queue;
    Line m_probes;
    int m_sinceProbe = 0; ///< datagrams
    int m_promptProbes; ///< that go out at once
    /// The sockets of the last second's sends, so that one that nobody else holds any more can
    /// still take in the reply.
    std::deque<std::shared_ptr<UdpSocket>> m_awaitingReply;
    std::vector<std::unique_ptr<PacedTask>> m_tasks;
};

} // namespace lumeroom
