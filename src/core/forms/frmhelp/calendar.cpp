#include "forms/frmhelp/calendar.h"

namespace hfc {

namespace {

// Codes are the catalogue's, with two deliberate shares: every RSGB line selects "rsgb", and the
// Russian cup and championship lines select "chemp"; both ARRL lines select "arrl10".
// clang-format off
constexpr CalendarNode kNodes[] = {
    {"n1", "", "closed", "Январь", "", false}, // 1
    {"", "n1", "bek", "1 янв     0900-1200  AGCW Happy New Year Contest    CW", "agcw", false}, // 2
    {"", "n1", "lux", "1 сб-вс   1800-0700  Кубок РФ и Чемпионат РФ среди женщин SSB", "chemp", true}, // 3
    {"", "n1", "lux", "2 пт-вс  2200-2200  Japan Int. DX Contest ,160-40m      CW", "jid", false}, // 4
    {"", "n1", "lux", "1 сб-вс   1700-0800  Кубок РФ                               CW", "chemp", false}, // 5
    {"", "n1", "lux", "3 сб       1200-2000  LZ Open Championship                   CW", "lzo", false}, // 6
    {"", "n1", "net", "   вс       0000-2400  HA DX Contest                                CW", "ha", false}, // 7
    {"", "n1", "lux", "4 пт-вс  2000-1600  CQ 160 meter Contest                      CW", "cq160", false}, // 8
    {"", "n1", "bek", "   сб-вс  0600-1800  REF Contest                                    CW", "ref", false}, // 9
    {"", "n1", "lux", "   сб-вс  1300-1300  UBA Contest                                   SSB", "uba", true}, // 10
    {"n2", "", "closed", "Февраль", "", false}, // 11
    {"", "n2", "lux", "2 сб-вс  1200-1200  Duch PACC Contest              CW/SSB", "pacc", false}, // 12
    {"", "n2", "bek", "   сб-вс  2100-2100  RSGB 1,8 Mhz Contest            CW", "rsgb", false}, // 13
    {"", "n2", "lux", "3  сб-вс  0000-2400  ARRL Int.DX Contest              CW", "arrl10", false}, // 14
    {"", "n2", "net", "4   пт-вс  2200-1600  CQ 160 meter Contest             SSB", "cq160", true}, // 15
    {"", "n2", "bek", "    сб-вс  0600-1800  REF Contest                          SSB", "ref", true}, // 16
    {"", "n2", "lux", "    сб-вс  1300-1300  UBA Contest                          CW", "uba", false}, // 17
    {"", "n2", "net", "    сб-вс  1900-0900  RSGB 7 Mhz Contest              CW", "rsgb", false}, // 18
    {"n3", "", "closed", "Март", "", false}, // 19
    {"", "n3", "lux", "1  сб-вс  0000-2400  ARRL Int.DX Contest              SSB", "arrl10", true}, // 20
    {"", "n3", "net", "2  сб-вс  1900-1900  RSGB Common. Contest        CW", "rsgb", false}, // 21
    {"", "n3", "lux", "   сб-вс  1800-0700  Чемпионат РФ                      SSB", "chemp", true}, // 22
    {"", "n3", "lux", "3  сб-вс  1200-1200  Russian DX Contest               CW/SSB", "rudx", false}, // 23
    {"", "n3", "lux", "4  сб-вс  0000-2400  CQ WW WPX DX Contest              SSB", "wpx", true}, // 24
    {"n4", "", "closed", "Апрель", "", false}, // 25
    {"", "n4", "net", "1  сб-вс  1500-1500  SP DX Contest                       CW/SSB", "sp", false}, // 26
    {"", "n4", "lux", "2  пт-вс  2300-2300  JID DX Contest ,20-10m             CW", "jid", false}, // 27
    {"", "n4", "lux", "   сб-вс  1800-0700  Чемпионат РФ                        CW", "chemp", false}, // 28
    {"", "n4", "net", "3  сб     0500-0900  ES Open HF Championship           CW/SSB", "es", false}, // 29
    {"", "n4", "lux", "   сб-вс  1200-1200  YU DX Contest                         CW/SSB", "yu", false}, // 30
    {"", "n4", "bek", "   сб-вс  1800-1800  Holyland DX Contest                 CW/SSB", "hol", false}, // 31
    {"", "n4", "net", "4  сб-вс  1300-1300  Helvetia DX Contest                 CW/SSB", "hel", false}, // 32
    {"n5", "", "closed", "Май", "", false}, // 33
    {"", "n5", "lux", "1  сб-вс  2000-2000  ARI Int.DX Contest                  CW/SSB/RTTY", "ari", false}, // 34
    {"", "n5", "lux", "2  сб-вс  2100-2100  CQ-M Int.DX Contest                CW/SSB/SSTV", "cqm", false}, // 35
    {"", "n5", "net", "3  сб-вс  2100-0200  Baltic  Contest                         CW/SSB", "bal", false}, // 36
    {"", "n5", "lux", "4  сб-вс  0000-2400  CQ WW WPX Contest                    CW", "wpx", false}, // 37
    {"n6", "", "closed", "Июнь", "", false}, // 38
    {"", "n6", "net", "1  сб-вс  1500-1500  IARU Reg.1 FieldDay                   CW", "fd", false}, // 39
    {"", "n6", "bek", "2  сб-вс  1200-1200  TOEC WW Grid Contest                   SSB", "toec", true}, // 40
    {"", "n6", "net", "3  сб-вс  0000-2400  All Asia DX Contest                     CW", "aa", false}, // 41
    {"", "n6", "lux", "4  сб-вс  1400-1400  Marconi Mem. Contest                     CW", "marc", false}, // 42
    {"n7", "", "closed", "Июль", "", false}, // 43
    {"", "n7", "net", "1-июля    0000-2400  RAC Canada Day Contest                   CW/SSB", "rac", false}, // 44
    {"", "n7", "lux", "2  сб-вс  1200-1200  IARU HF World Championship             CW/SSB", "iaru", false}, // 45
    {"", "n7", "lux", "4  сб-вс  1200-1200  IOTA Contest                                       CW/SSB", "iota", false}, // 46
    {"n8", "", "closed", "Август", "", false}, // 47
    {"", "n8", "lux", "1  сб      1000-2100  Europen HF Chempionship                  CW/SSB", "euhf", false}, // 48
    {"", "n8", "net", "     вс     0000-2000  YO DX Contest                                   CW/SSB", "yo", false}, // 49
    {"", "n8", "lux", "2  сб-вс   0000-2400  Worked All Europe DX Contest            CW", "wae", false}, // 50
    {"", "n8", "lux", "3  сб-вс  1200-1200  KCJ Contest                                        CW", "kcj", false}, // 51
    {"", "n8", "bek", "4  сб-вс  1200-1200  TOEC WW Grid Contest                      CW", "toec", false}, // 52
    {"n9", "", "closed", "Сентябрь", "", false}, // 53
    {"", "n9", "net", "1  сб-вс  0000-2400  ALL Asian DX Contest                         SSB", "aa", true}, // 54
    {"", "n9", "net", "2  сб-вс  0000-2400  Worked All Europe DX Contest             SSB", "wae", true}, // 55
    {"", "n9", "net", "   сб-вс  1200-1200  Scandinavian Activity Contest               CW", "sac", false}, // 56
    {"", "n9", "net", "3  сб-вс  1200-1200  Scandinavian Activity Contest              SSB", "sac", true}, // 57
    {"n10", "", "closed", "Октябрь", "", false}, // 58
    {"", "n10", "net", "1  сб-вс  1000-1000  VK/ZL/OC  DX Contest                         SSB", "vkzl", true}, // 59
    {"", "n10", "net", "      вс  0700-1900  RSGB 21/28 DX Contest                         SSB", "rsgb", true}, // 60
    {"", "n10", "net", "2  сб-вс  1000-1000  VK/ZL/OC  DX Contest                           CW", "vkzl", false}, // 61
    {"", "n10", "net", "3     вс  0700-1900  RSGB 21/28 DX Contest                         CW", "rsgb", false}, // 62
    {"", "n10", "lux", "   сб-вс  1500-1500  Worked All Germany Contest                   CW/SSB", "wag", false}, // 63
    {"", "n10", "lux", "4  сб-вс  0000-2400  CQ WW DX                                         SSB", "cqww", true}, // 64
    {"n11", "", "closed", "Ноябрь", "", false}, // 65
    {"", "n11", "net", "1  сб-вс  1200-1200  Ukrainian  DX Contest                         CW/SSB/RTTY", "ukr", false}, // 66
    {"", "n11", "net", "2  пт-вс  2300-2300  Japan Int. DX Contest                         SSB", "jid", true}, // 67
    {"", "n11", "net", "   сб-вс  1200-1200  OK/OM  DX Contest                              CW", "ok", false}, // 68
    {"", "n11", "lux", "3  сб-вс  1200-1200  LZ  DX Contest                                 CW", "lzd", false}, // 69
    {"", "n11", "net", "   сб-вс  2100-0100  RSGB 1,8  DX Contest                           CW", "rsgb", false}, // 70
    {"", "n11", "lux", "4  сб-вс  0000-2400  CQ WW  DX Contest                              CW", "cqww", false}, // 71
    {"n12", "", "closed", "Декабрь", "", false}, // 72
    {"", "n12", "bek", "1  сб-вс  1600-1600  EA  DX Contest                                 CW", "ea", false}, // 73
    {"", "n12", "lux", "   сб-вс  1800-1800  TOPS Activity 80m Contest                       CW", "tops", false}, // 74
    {"", "n12", "lux", "2  сб-вс  0000-2400  ARRL 10m  DX Contest                             CW/SSB", "arrl10", false}, // 75
    {"", "n12", "net", "3  сб-вс  1400-1400  Croatian  DX Contest                              CW", "cro", false}, // 76
    {"", "n12", "lux", "   сб-вс  2100-0900  RAEM                                               CW", "raem", false}, // 77
};
// clang-format on

} // namespace

std::span<const CalendarNode> calendarNodes() {
    return kNodes;
}

const CalendarNode* calendarNode(int index) {
    if (index < 1 || index > int(std::size(kNodes))) return nullptr;
    return &kNodes[index - 1];
}

} // namespace hfc
