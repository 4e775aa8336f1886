#pragma once
// Plays Morse element strings on a key port. Messages go out on a worker thread so that the
// window keeps taking keys while one is sent; further messages queue behind it, and Esc (abort)
// stops the message at once.
#include "keyer/keyerbackend.h"
#include "keyer/keyport.h"

#include <QString>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace hfc {

class Keyer : public KeyerBackend {
  public:
    explicit Keyer(std::shared_ptr<KeyPort> port);
    ~Keyer() override;
    Keyer(const Keyer&) = delete;
    Keyer& operator=(const Keyer&) = delete;

    // HScroll1_Change: the unit in iterations for a speed-bar position (1..100, 51 at start).
    static qint64 unitForBar(int value) { return qint64(101 - value) * 3000; }
    static double wpmForBar(int value);

    KeyPort& port() const { return *m_port; }

    // The panel's COM choice (1..4); a message uses the choice in force when it was queued.
    void setCommPort(int commPort);
    int commPort() const;

    // Called on the worker thread when the port cannot be opened or a line cannot be set. The
    // message has stopped with the lines and the port left as they were. The handler must be
    // thread-safe: a form posts it to its own thread to show "Порт занят". waitIdle() returns only
    // after the handler has returned. The error handler of KeyerBackend gets "Порт занят" then.
    void setPortErrorHandler(std::function<void()> handler);

    // Queues a message (cwkey): PTT on, the elements at `unit` iterations, then the 4-unit PTT tail
    // at `restoredUnit`, the bar's unit once the per-key speed factor is undone.
    void send(const QString& cwcode, qint64 unit, qint64 restoredUnit) override;

    // Esc: drops the queue and stops the message being sent; if the port is open, DTR off, RTS off
    // and the port closed, in that order.
    void abort() override;

    // Blocks until the queue is empty and nothing is being sent.
    void waitIdle() override;
    bool busy() const override;

  private:
    struct Message {
        QString cwcode;
        qint64 unit;
        qint64 restoredUnit;
        int commPort;
    };
    enum class Outcome { Sent, Aborted, PortError };

    void run();
    Outcome play(const Message& m);
    void releaseLines();
    bool busyLocked() const { return m_sending || m_releasePending || !m_queue.empty(); }

    std::shared_ptr<KeyPort> m_port;
    std::atomic<bool> m_abort{false};
    std::atomic<int> m_commPort{1};

    mutable std::mutex m_mutex;
    std::condition_variable m_wake; // worker: work or stop
    std::condition_variable m_idle; // waitIdle
    std::deque<Message> m_queue;
    bool m_sending = false;
    bool m_releasePending = false;
    bool m_stop = false;
    std::function<void()> m_onPortError;

    std::thread m_thread;
};

} // namespace hfc
