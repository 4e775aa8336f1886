#include "station/rig.h"

#include "station/settings.h"

#include <chrono>
#include <clocale>
#include <condition_variable>
#include <csignal>
#include <functional>
#include <hamlib/rig.h>
#include <mutex>
#include <optional>
#include <pthread.h>
#include <thread>

namespace hfc {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

namespace {

// After a failed open or a radio that stopped answering: the next try, so a radio that comes
// back is in use again well within two seconds.
constexpr milliseconds kRetry{500};
// How long the daemon may take for one answer: rigctld on this computer or the station's
// network answers in milliseconds; longer means it is stopped or gone.
constexpr const char* kNetTimeoutMs = "500";

void quietHamlib() {
    static std::once_flag once;
    // Hamlib's messages would go to the program's standard error, and the script driver's output.
    std::call_once(once, [] { rig_set_debug(RIG_DEBUG_NONE); });
}

bool setConf(RIG* r, const char* name, const QByteArray& value) {
    const token_t tok = rig_token_lookup(r, name);
    return tok != RIG_CONF_END && rig_set_conf(r, tok, value.constData()) == RIG_OK;
}

QString reason(int rc) {
    switch (-rc) {
    case RIG_ETIMEOUT:
        return QStringLiteral("нет ответа");
    case RIG_EIO:
        return QStringLiteral("нет соединения");
    case RIG_EPROTO:
        return QStringLiteral("непонятный ответ");
    default:
        return QStringLiteral("ошибка Hamlib %1").arg(rc);
    }
}

// rigctld is reached through Hamlib's own network model: the same calls then serve a radio on
// this computer and one behind the daemon, and Hamlib keeps up with the daemon's protocol.
RIG* openRig(const RigTarget& t, QString& why) {
    const bool net = !t.rigctld.isEmpty();
    RIG* r = rig_init(net ? RIG_MODEL_NETRIGCTL : rig_model_t(t.model));
    if (!r) {
        why = QStringLiteral("Hamlib не знает модель %1").arg(t.model);
        return nullptr;
    }
    setConf(r, "rig_pathname", (net ? t.rigctld : t.port).toLocal8Bit());
    if (net) {
        setConf(r, "timeout", kNetTimeoutMs);
        setConf(r, "retry", "0");
    } else if (t.speed > 0) {
        setConf(r, "serial_speed", QByteArray::number(t.speed));
    }
    const int rc = rig_open(r);
    if (rc != RIG_OK) {
        why = reason(rc);
        rig_cleanup(r);
        return nullptr;
    }
    // Every poll asks the radio itself: a cached answer would hide a radio that stopped.
    rig_set_cache_timeout_ms(r, HAMLIB_CACHE_ALL, 0);
    return r;
}

void closeRig(RIG*& r) {
    if (!r) return;
    rig_close(r);
    rig_cleanup(r);
    r = nullptr;
}

QString modeName(rmode_t m) {
    if (m == RIG_MODE_CW || m == RIG_MODE_CWR) return QStringLiteral("CW");
    if (m == RIG_MODE_LSB || m == RIG_MODE_USB) return QStringLiteral("SSB");
    return {};
}

} // namespace

struct Rig::Shared {
    std::mutex m;
    std::condition_variable cv;
    Rig* owner = nullptr; // null once the window's side is gone: nothing more is posted
    bool stop = false;
    bool targetChanged = false;
    RigTarget target;
    std::optional<std::pair<double, quint64>> freqCmd;
    std::optional<std::pair<QString, quint64>> modeCmd;
    bool finished = false;
    std::thread thread;

    // Runs f on the window's thread, unless the window's side is already gone.
    void post(std::function<void(Rig*)> f) {
        std::lock_guard lock(m);
        if (!owner) return;
        Rig* o = owner;
        QMetaObject::invokeMethod(
            o, [o, f = std::move(f)] { f(o); }, Qt::QueuedConnection);
    }
    void postState(State st, const QString& why) {
        post([st, why](Rig* r) {
            r->state_ = st;
            emit r->stateChanged(st, why);
        });
    }
    void postReading(const RigReading& rd) {
        post([rd](Rig* r) { emit r->reading(rd); });
    }

    static void run(const std::shared_ptr<Shared>& s);
};

void Rig::Shared::run(const std::shared_ptr<Shared>& s) {
    // A daemon that went away must not end the program with SIGPIPE on the next write.
    sigset_t pipe;
    sigemptyset(&pipe);
    sigaddset(&pipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe, nullptr);
    quietHamlib();

    RIG* rig = nullptr;
    RigTarget target;
    Clock::time_point nextOpen = Clock::now();
    bool failing = false; // the loss has been told; say nothing until it changes
    quint64 handled = 0;
    RigReading last;
    bool fresh = true; // post the next reading whatever it says
    for (;;) {
        std::optional<std::pair<double, quint64>> freqCmd;
        std::optional<std::pair<QString, quint64>> modeCmd;
        {
            std::unique_lock lock(s->m);
            if (s->stop) break;
            if (s->targetChanged) {
                s->targetChanged = false;
                target = s->target;
                closeRig(rig);
                failing = false;
                nextOpen = Clock::now();
                lock.unlock();
                s->postState(target.isSet() ? State::Connecting : State::Off, {});
                lock.lock();
            }
            // Commands go to a radio that answers; one asked of a missing radio is dropped, not
            // carried out when it comes back.
            freqCmd.swap(s->freqCmd);
            modeCmd.swap(s->modeCmd);
        }
        if (freqCmd) handled = std::max(handled, freqCmd->second);
        if (modeCmd) handled = std::max(handled, modeCmd->second);

        if (!rig && target.isSet() && Clock::now() >= nextOpen) {
            QString why;
            rig = openRig(target, why);
            if (rig) {
                failing = false;
                fresh = true;
                s->postState(State::Online, {});
            } else {
                if (!failing) s->postState(State::Lost, why);
                failing = true;
                nextOpen = Clock::now() + kRetry;
            }
            freqCmd.reset();
            modeCmd.reset();
        }
        if (rig) {
            int rc = RIG_OK;
            bool carried = false;
            if (freqCmd) {
                rc = rig_set_freq(rig, RIG_VFO_CURR, freq_t(freqCmd->first));
                carried = true;
            }
            if (rc == RIG_OK && modeCmd) {
                const bool cw = modeCmd->first == QLatin1String("CW");
                // Sideband by the usual rule: lower below 10 MHz, upper above.
                const rmode_t ssb = last.hz < 10e6 ? RIG_MODE_LSB : RIG_MODE_USB;
                rc = rig_set_mode(rig, RIG_VFO_CURR, cw ? RIG_MODE_CW : ssb, RIG_PASSBAND_NOCHANGE);
                carried = true;
            }
            freq_t hz = 0;
            rmode_t mode = RIG_MODE_NONE;
            pbwidth_t width = 0;
            if (rc == RIG_OK) rc = rig_get_freq(rig, RIG_VFO_CURR, &hz);
            if (rc == RIG_OK) rc = rig_get_mode(rig, RIG_VFO_CURR, &mode, &width);
            if (rc != RIG_OK) {
                // Whatever answers arrive late belong to questions no longer asked: start over.
                closeRig(rig);
                s->postState(State::Lost, reason(rc));
                failing = true;
                nextOpen = Clock::now() + kRetry;
            } else {
                const RigReading now{double(hz), modeName(mode), handled};
                if (fresh || carried || now.hz != last.hz || now.mode != last.mode ||
                    now.seq != last.seq)
                    s->postReading(now);
                last = now;
                fresh = false;
            }
        }

        std::unique_lock lock(s->m);
        s->cv.wait_for(lock, milliseconds(PollMs), [&] {
            return s->stop || s->targetChanged || (rig && (s->freqCmd || s->modeCmd));
        });
    }
    closeRig(rig);
    std::lock_guard lock(s->m);
    s->finished = true;
    s->cv.notify_all();
}

RigTarget RigTarget::from(const StationSettings& s) {
    RigTarget t;
    t.rigctld = s.rigctld.trimmed();
    if (t.rigctld.isEmpty() && s.rigModel > 0) {
        t.model = s.rigModel;
        t.port = s.rigPort;
        t.speed = s.rigSpeed;
    }
    return t;
}

QString RigTarget::describe() const {
    if (!rigctld.isEmpty()) return QStringLiteral("rigctld %1").arg(rigctld);
    if (model > 0)
        return port.isEmpty() ? QStringLiteral("модель %1").arg(model)
                              : QStringLiteral("модель %1, %2").arg(model).arg(port);
    return {};
}

Rig::Rig(QObject* parent) : QObject(parent), shared_(std::make_shared<Shared>()) {
    // rig_open switches LC_NUMERIC to "C" and back through a name pointer that the switch
    // itself frees (a use after free whenever the locale is not already "C"). Qt formats numbers
    // through QLocale, not the C locale, so the process keeps "C" for numbers from here on and
    // Hamlib's switch changes nothing.
    std::setlocale(LC_NUMERIC, "C");
    shared_->owner = this;
    shared_->thread = std::thread([s = shared_] { Shared::run(s); });
}

Rig::~Rig() {
    std::unique_lock lock(shared_->m);
    shared_->owner = nullptr;
    shared_->stop = true;
    shared_->cv.notify_all();
    // A Hamlib call in progress ends by its own timeout; a radio that hangs longer (a serial
    // driver that blocks) must not hold the window's closing.
    const bool ended =
        shared_->cv.wait_for(lock, std::chrono::seconds(2), [this] { return shared_->finished; });
    lock.unlock();
    if (ended)
        shared_->thread.join();
    else
        shared_->thread.detach();
}

void Rig::setTarget(const RigTarget& t) {
    if (t == target_) return;
    target_ = t;
    std::lock_guard lock(shared_->m);
    shared_->target = t;
    shared_->targetChanged = true;
    shared_->cv.notify_all();
}

quint64 Rig::setFrequency(double hz) {
    if (state_ != State::Online) return 0;
    std::lock_guard lock(shared_->m);
    shared_->freqCmd = std::make_pair(hz, ++seq_);
    shared_->cv.notify_all();
    return seq_;
}

quint64 Rig::setMode(const QString& mode) {
    if (state_ != State::Online) return 0;
    std::lock_guard lock(shared_->m);
    shared_->modeCmd = std::make_pair(mode, ++seq_);
    shared_->cv.notify_all();
    return seq_;
}

} // namespace hfc
