// Keystrokes in the callsign box while a DX cluster sends 50 spots a second: a cluster on a
// local port (its own thread, plain sockets) feeds the window's real telnet session, and
// keystrokes come every 40 ms on the window's event loop. A keystroke's latency is from the
// moment it was due to the end of its handling, so time the loop spent on spots before it (a
// line read, a redraw of the map) counts. First a quiet phase with the link up and no spots,
// then the busy one. Prints figures only.
//   BASE=60 SECONDS=600 RATE=50 ./bench_cluster
#include "benchutil.h"
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "script/scriptedui.h"
#include "station/cluster.h"
#include "station/settings.h"
#include "station/spotlist.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>
#include <arpa/inet.h>
#include <atomic>
#include <cstdio>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

using namespace hfc;
using namespace hfc::bench;

namespace {

int envInt(const char* name, int fallback) {
    bool ok = false;
    const int v = qEnvironmentVariableIntValue(name, &ok);
    return ok && v > 0 ? v : fallback;
}

// The cluster: asks for the call, then sends `rate` spots a second while `sending` is set.
class Feeder {
  public:
    explicit Feeder(int rate) : rate_(rate) {
        listen_ = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in a{};
        a.sin_family = AF_INET;
        a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        ::bind(listen_, reinterpret_cast<sockaddr*>(&a), sizeof a);
        ::listen(listen_, 1);
        socklen_t len = sizeof a;
        ::getsockname(listen_, reinterpret_cast<sockaddr*>(&a), &len);
        port_ = ntohs(a.sin_port);
        thread_ = std::thread([this] { run(); });
    }
    ~Feeder() {
        stop_ = true;
        ::shutdown(listen_, SHUT_RDWR);
        thread_.join();
        ::close(listen_);
    }
    quint16 port() const { return port_; }
    std::atomic<bool> sending{false};
    std::atomic<long> sent{0};

  private:
    void run() {
        const int fd = ::accept(listen_, nullptr, nullptr);
        if (fd < 0) return;
        const char prompt[] = "Please enter your call: ";
        ::send(fd, prompt, sizeof prompt - 1, MSG_NOSIGNAL);
        QRandomGenerator rng(7);
        static const double starts[6] = {1800, 3500, 7000, 14000, 21000, 28000};
        std::vector<QString> pool; // calls spotted again and again, some on the move
        for (int i = 0; i < 400; ++i) pool.push_back(randomCall(rng));
        const auto step = std::chrono::microseconds(1000000 / rate_);
        auto due = Steady::now();
        while (!stop_) {
            std::this_thread::sleep_until(due);
            due += step;
            if (!sending) continue;
            const QString call =
                rng.bounded(3) == 0 ? pool[rng.bounded(int(pool.size()))] : randomCall(rng);
            const double kHz = starts[rng.bounded(6)] + rng.bounded(800) / 10.0;
            const QByteArray line =
                QStringLiteral("DX de DK9IP-#:   %1  %2   CW    24 dB  28 WPM  CQ      1200Z\r\n")
                    .arg(kHz, 0, 'f', 1)
                    .arg(call, -12)
                    .toLatin1();
            if (::send(fd, line.constData(), size_t(line.size()), MSG_NOSIGNAL) < 0) break;
            ++sent;
        }
        ::close(fd);
    }

    int rate_;
    int listen_ = -1;
    quint16 port_ = 0;
    std::atomic<bool> stop_{false};
    std::thread thread_;
};

void fillLog(Db& db, int qsos, QRandomGenerator& rng) {
    static const QString bands[6] = {"1,8", "3,5", "7", "14", "21", "28"};
    db.begin();
    for (int i = 0; i < qsos; ++i) {
        const QString call = randomCall(rng);
        const QString zone = QString::number(1 + rng.bounded(40)).rightJustified(2, '0');
        db.run("INSERT INTO tbllog (ccall, ddate, ttime, bband, rsts, rstr, rsts1, rsts2, rstr1, "
               "rstr2, mult, ps, point, ps1, ps2) VALUES (?1, '30.11.02', '12:00', ?2, '599', "
               "'599', '599', '16', '599', ?3, ?4, ?3, '3', 'CW', 'cqww')",
               {call, bands[rng.bounded(6)], zone, call.left(2)});
    }
    db.commit();
}

struct Phase {
    std::vector<double> latency, handler;
};

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int baseSeconds = envInt("BASE", 60);
    const int busySeconds = envInt("SECONDS", 600);
    const int rate = envInt("RATE", 50);

    QTemporaryDir dir;
    Databases dbs;
    openOrExit(dbs, dir.path());
    QRandomGenerator rng(1);
    fillLog(dbs.contest, 5000, rng);

    Feeder feeder(rate);
    ScriptedUi ui;
    SystemClock clock; // spots age in real time
    StationSettings settings;
    settings.clusterHost = QStringLiteral("127.0.0.1:%1").arg(feeder.port());
    Env env;
    env.db = &dbs;
    env.ui = &ui;
    env.clock = &clock;
    env.settings = &settings;
    ContestForm form(env);
    form.owncall = QStringLiteral("UA3ABC");
    form.Form_Load();
    form.contestcode = "cqww";
    form.cqfill = 0;
    form.dxccmult = 0;
    form.exchmult = 0;
    form.cmbband_Click(3);

    long redraws = 0;
    QObject::connect(form.bandmap, &Control::changed, [&] { ++redraws; });

    std::vector<QString> calls;
    for (int i = 0; i < 300; ++i) calls.push_back(randomCall(rng));
    size_t callAt = 0;
    int charAt = 0;

    Phase phases[2];
    Phase* phase = &phases[0];
    constexpr auto keyEvery = std::chrono::milliseconds(40);
    auto due = Steady::now() + keyEvery;
    QTimer key;
    key.setSingleShot(true);
    key.setTimerType(Qt::PreciseTimer);
    QObject::connect(&key, &QTimer::timeout, [&] {
        const auto start = Steady::now();
        const QString& call = calls[callAt];
        if (charAt == 0) {
            form.setFocus("txtcall");
            form.txtcall->setText("");
        }
        form.typeChar(call[charAt]);
        if (++charAt == call.size()) {
            charAt = 0;
            callAt = (callAt + 1) % calls.size();
        }
        const auto end = Steady::now();
        phase->latency.push_back(ms(end - due));
        phase->handler.push_back(ms(end - start));
        due += keyEvery;
        if (due < end) due = end; // a late key does not make the next ones late as well
        key.start(int(std::chrono::ceil<std::chrono::milliseconds>(due - Steady::now()).count()));
    });

    QElapsedTimer wall;
    wall.start();
    key.start(int(keyEvery.count()));
    long redrawsBase = 0;
    QTimer::singleShot(baseSeconds * 1000, [&] {
        redrawsBase = redraws;
        phase = &phases[1];
        feeder.sending = true;
    });
    QTimer::singleShot((baseSeconds + busySeconds) * 1000, [&] { app.quit(); });
    app.exec();
    feeder.sending = false;

    std::printf("cluster on a local port, %d spots/s; keys every 40 ms; log of 5,000 QSOs\n", rate);
    std::printf("login: %s\n", qPrintable(form.lblcluster->text()));
    const char* names[2] = {"quiet", "spots"};
    const long redrawCount[2] = {redrawsBase, redraws - redrawsBase};
    const int seconds[2] = {baseSeconds, busySeconds};
    std::printf("%-6s %6s %8s | %-24s | %-24s | %s\n", "phase", "secs", "keys",
                "latency p50 / p99 / max", "handler p50 / p99 / max", "map redraws/s");
    for (int i = 0; i < 2; ++i) {
        Phase& p = phases[i];
        const size_t n = p.latency.size();
        std::vector<double> lat = p.latency, han = p.handler;
        const double lmax = lat.empty() ? 0 : *std::max_element(lat.begin(), lat.end());
        const double hmax = han.empty() ? 0 : *std::max_element(han.begin(), han.end());
        std::printf("%-6s %6d %8zu | %6.3f / %6.3f / %7.2f | %6.3f / %6.3f / %7.2f | %.2f\n",
                    names[i], seconds[i], n, quantile(lat, 0.5), quantile(lat, 0.99), lmax,
                    quantile(han, 0.5), quantile(han, 0.99), hmax,
                    double(redrawCount[i]) / seconds[i]);
    }
    std::printf("spots sent %ld, in the list %zu, on 14 MHz %zu\n", feeder.sent.load(),
                form.spots().size(), form.bandmap->rowCount());

    // The window thread's own costs, free of the scheduling noise above: a line read into the
    // list, a redraw of the map, and the rows one screen of the map reads (with their marks).
    form.cluster()->stop();
    QRandomGenerator lines(3);
    static const double starts[6] = {1800, 3500, 7000, 14000, 21000, 28000};
    std::vector<QString> text;
    for (int i = 0; i < 30000; ++i)
        text.push_back(
            QStringLiteral("DX de DK9IP-#:   %1  %2   CW    24 dB  28 WPM  CQ      1200Z")
                .arg(starts[lines.bounded(6)] + lines.bounded(800) / 10.0, 0, 'f', 1)
                .arg(randomCall(lines), -12));
    auto t0 = Steady::now();
    for (const QString& l : text) form.clusterLine(l);
    const double perLine = ms(Steady::now() - t0) * 1000 / double(text.size());
    std::vector<double> redraw, screen;
    for (int i = 0; i < 50; ++i) {
        form.clusterLine(text[size_t(i)] + " "); // the band changed: the map is out of date
        form.clusterLine(
            QStringLiteral("DX de SP5ZZZ: %1 UA%2ZZ CQ 1200Z").arg(14001 + i).arg(i % 10));
        t0 = Steady::now();
        form.bandmapRefresh();
        redraw.push_back(ms(Steady::now() - t0));
        t0 = Steady::now();
        for (size_t r = 0; r < 40 && r < form.bandmap->rowCount(); ++r) form.bandmap->row(r);
        screen.push_back(ms(Steady::now() - t0));
    }
    const double redrawP50 = quantile(redraw, 0.5), redrawMax = redraw.back();
    const double screenP50 = quantile(screen, 0.5), screenMax = screen.back();
    std::printf("with %zu spots, %zu on 14 MHz: a line %.1f us; a redraw p50 %.3f ms, max %.3f; "
                "40 rows read p50 %.3f ms, max %.3f\n",
                form.spots().size(), form.bandmap->rowCount(), perLine, redrawP50, redrawMax,
                screenP50, screenMax);
    return 0;
}
