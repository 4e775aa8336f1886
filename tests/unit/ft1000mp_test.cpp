// The FT-1000MP command on a real serial line: a pseudo-terminal pair made by socat stands for
// the cable, and the other end must receive the block of the band confirmed with Enter.
#include "formfixture.h"
#include "station/settings.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QThread>
#include <fcntl.h>
#include <unistd.h>

using namespace hfc;

namespace {

struct Ft1000mpTest : hfc::test::FormFixture {
    QTemporaryDir ptys;
    QProcess socat;
    StationSettings settings;
    int radio = -1; // the transceiver's end of the cable

    void SetUp() override {
        FormFixture::SetUp();
        const QString a = ptys.path() + "/computer", b = ptys.path() + "/radio";
        socat.start("socat", {"pty,raw,echo=0,link=" + a, "pty,raw,echo=0,link=" + b});
        ASSERT_TRUE(socat.waitForStarted(5000)) << "socat is not installed";
        for (int i = 0; i < 200 && !(QFileInfo::exists(a) && QFileInfo::exists(b)); ++i)
            QThread::msleep(20);
        radio = ::open(QFile::encodeName(b).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY);
        ASSERT_GE(radio, 0);
        settings.ft1000mp = a;
        Env env = form->env();
        env.settings = &settings;
        form = std::make_unique<ContestForm>(env);
        form->Form_Load();
    }
    void TearDown() override {
        form.reset();
        if (radio >= 0) ::close(radio);
        socat.kill();
        socat.waitForFinished(5000);
    }
    QByteArray received(int expected) {
        QByteArray got;
        QElapsedTimer t;
        t.start();
        while (got.size() < expected && t.elapsed() < 3000) {
            char buf[64];
            const ssize_t n = ::read(radio, buf, sizeof buf);
            if (n > 0)
                got.append(buf, int(n));
            else
                QThread::msleep(10);
        }
        return got;
    }
    void enterOnBand(int index) {
        form->setFocus(form->cmbband[index]);
        form->typeChar(QChar(keys::Enter));
    }
};

TEST_F(Ft1000mpTest, EnterOnABandSendsItsBlockOnTheLineOnlyWithTheLinkOn) {
    form->click(form->cmbband[3]);
    enterOnBand(3); // the link is off: nothing goes out
    form->mnuCAT_Click();
    ASSERT_EQ(text("mnuCAT"), "CAT FT1000MP вкл");
    form->cmbmod_Click(); // SSB
    form->click(form->cmbband[4]);
    enterOnBand(4);
    const char block[] = {0, 80, 17, 2, 10};
    EXPECT_EQ(received(5), QByteArray(block, 5));
    EXPECT_EQ(text("lblcat"), "CAT: 0 80 17 2 10"); // the label stays
    EXPECT_TRUE(ui.takeShown().isEmpty());
}

} // namespace
