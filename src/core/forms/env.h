#pragma once
// What every window model reaches outside itself: the databases, the dialogs, the clock and the
// key port, and the station's settings. The program and the script driver each fill one.
namespace hfc {

class Databases;
class Ui;
class Clock;
class KeyPort;
struct StationSettings;

struct Env {
    Databases* db = nullptr;
    Ui* ui = nullptr;
    Clock* clock = nullptr;
    KeyPort* port = nullptr;
    StationSettings* settings = nullptr; // null: no rig, cluster, network keyer or multi-op
};

} // namespace hfc
