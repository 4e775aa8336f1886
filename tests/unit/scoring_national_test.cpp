// Points and exchange checks of the contests around an organising country: real QSOs logged
// through the entry line, one table per contest.
#include "scoringfixture.h"

using Scoring = hfc::test::ScoringFixture;

TEST_F(Scoring, TheOrganisersStationsCountMost) {
    expectIn("mnuari",
             {"RA3AA I2XYZ 14 MI 10", "RA3AA IT9ABC 14 BT 10", // a province newer than the window
              "RA3AA UA3BBB 14 001 0", "RA3AA DL1ABC 14 001 1", "RA3AA W1AW 14 001 3",
              "RA3AA I2XYZ 14 XX Неверно", "RA3AA DL1ABC 14 MI Неверно"});
    expectIn("mnuea",
             {"RA3AA EA1ABC 14 M 3", "RA3AA EA8AB 14 TF 3", "RA3AA DL1ABC 14 001 1",
              "EA1ABC EA5XYZ 14 V 2", "EA1ABC DL1ABC 14 001 1", "RA3AA EA1ABC 14 XX Неверно"});
    expectIn("mnuha",
             {"RA3AA HA5AA 14 BP 10", "RA3AA HA5AA 14 1234 10", // an HA-DX Club member
              "RA3AA DL1ABC 14 001 2", "RA3AA W1AW 14 001 5", "RA3AA HA5AA 14 XX Неверно"});
    expectIn("mnuukr", {"RA3AA UR5AA 14 KI 10", "RA3AA UA3BBB 14 001 1", "RA3AA DL1ABC 14 001 2",
                        "RA3AA W1AW 14 001 3", "UR5AA UR4AA 14 KI 1", "UR5AA DL1ABC 14 001 2",
                        "RA3AA UR5AA 14 XX Неверно"});
    expectIn("mnuuba", {"RA3AA ON4AA 14 001AN 10", // serial and the province's two letters
                        "RA3AA DL1ABC 14 001 3", "RA3AA W1AW 14 001 1", "RA3AA UA3BBB 14 001 1",
                        "RA3AA ON4AA 14 001ANT Неверно"});
    expectIn("mnuok", {"RA3AA OK1RR 14 APA 10", "RA3AA OM3AA 14 BAA 10", // a Slovak district
                       "RA3AA DL1ABC 14 - 3", // a serial: logged with the button
                       "RA3AA W1AW 14 - 5", "RA3AA DL1ABC/MM 14 - 5",
                       "DL1ABC RA3AA 14 - 3", // a European station like any other
                       "RA3AB RA3AA 14 - 1",  // own country
                       "OK1RR OK2AA 14 BBN 2", "RA3AA OK1RR 14 ABC Неверно"});
    expectIn("mnuyo 29", {"RA3AA YO3AA 14 . Неверно", // the zone, where a county is due
                          "RA3AA YO3AA 14 BU 8", "RA3AA DL1ABC 14 . 2", "RA3AA W1AW 14 . 4",
                          "RA3AA UA3BBB 14 . 1", "RA3AA DL1ABC/MM 14 . 4", "RA3AA DL1ABC 1,8 . 0",
                          "YO3AA YO5AA 14 CJ 0", "YO3AA DL1ABC 14 . 4", "YO3AA W1AW 14 . 8"});
    expectIn("mnuyu 29", {"RA3AA YU1AA 14 . 10", "RA3AA DL1ABC 14 . 0", "YU1AA YU7AA 14 . 1",
                          "RA3AA YU1AA 14 91 Неверно"});
    expectIn("nmuref", {"RA3AA F5ABC 14 75 1", "RA3AA F5ABC 14 2A 1", "RA3AA FG5AA 14 FG 3",
                        "RA3AA DL1ABC 14 001 0", "F5ABC DL1ABC 14 001 1", "F5ABC W1AW 14 001 3",
                        "RA3AA F5ABC 14 96 Неверно"});
    expectIn("mnusp", {"RA3AA SP9XX 14 K 3", "RA3AA DL1ABC 14 - 0", "SP9XX SP5AA 14 W 3",
                       "SP9XX DL1ABC 14 - 1", "SP9XX W1AW 14 - 3", "RA3AA SP9XX 14 X Неверно"});
    expectIn("mnujid 16", {"RA3AA JA1XYZ 1,8 10 4", "RA3AA JA1XYZ 3,5 10 2", "RA3AA JA1XYZ 14 10 1",
                           "RA3AA JA1XYZ 28 10 2", "RA3AA DL1ABC 14 14 0", "JA1XYZ JA2ABC 14 20 0",
                           "JA1XYZ DL1ABC 14 14 1", "RA3AA JA1XYZ 14 51 Неверно"});
}

TEST_F(Scoring, OnlyTheOrganisersStationsScore) {
    expectIn("mnues", {"RA3AA ES1AA 3,5 001 2", "RA3AA ES1AA 7 001 1 SSB", "RA3AA ES1AA 14 001 0",
                       "RA3AA DL1ABC 3,5 001 0", "ES1AA DL1ABC 3,5 001 2", "ES1AA RA3AA 3,5 001 0",
                       "ES1AA EW1AA 3,5 001 0"});
    expectIn("mnuhol", {"RA3AA 4X4AA 7 F15TA 2", "RA3AA 4X4AA 14 F15TA 1", "RA3AA DL1ABC 14 001 1",
                        "RA3AA 4X4AA 14 F15 Неверно"});
    expectIn("mnuhel",
             {"RA3AA HB9ABC 14 ZH 3", "RA3AA DL1ABC 14 001 0", "RA3AA HB9ABC 14 XX Неверно"});
    expectIn("mnukcj EU", {"RA3AA JA1XYZ 14 TK 1", "RA3AA JA1XYZ 14 T Неверно"});
    expectIn("mnulz 29",
             {"RA3AA LZ1AA 14 . 6",
              "RA3AA LZ1AA 14 99 6", // their district does not fit the box: unchecked
              "RA3AA DL1ABC 14 . 1", "RA3AA W1AW 14 . 3", "RA3AA DL1ABC 14 91 Неверно"});
    expectIn("mnulzo", {"RA3AA UA3BBB 14 001000 1", "RA3AA DL1ABC 14 012005 2",
                        "RA3AA DL1ABC 14 0120 Неверно"});
    expectIn("mnupacc",
             {"RA3AA PA3ABC 14 NH 1", "RA3AA DL1ABC 14 - 0", "RA3AA PA3ABC 14 XX Неверно"});
    expectIn("mnuwag", {"RA3AA DL1ABC 14 B01 3", "RA3AA DL1ABC 14 NM 3",
                        "RA3AA DL1ABC 14 DA0HQ 3", // a special DOK
                        "RA3AA OE1ABC 14 001 0", "RA3AA DL1ABC 14 1 Неверно"});
}

TEST_F(Scoring, RussianAndBritishContests) {
    expectIn("mnurus MA",
             {"RA3AA RA3BB 14 . 2", // the oblast pre-filled from the call
              "RA3AA RA9AA 14 . 5", "RA3AA DL1ABC 14 001 3", "RA3AA W1AW 14 001 5",
              "RA3AA RA3BB 14 ZZ Неверно", "RA3AA DL1ABC/MM 14 001 5", "DL1ABC RA3BB 14 . 10",
              "DL1ABC DL2XYZ 14 001 2", "DL1ABC F5ABC 14 001 3"});
    expectIn("mnuchemp", {"RA3AA RA3BB 14 1_001 11/1", "RA3AA RA3BB 14 3_001 13/1",
                          "RA3AA RA9AA 14 7_001 25/1", "RA3AA DL1ABC 14 2_001 0",
                          "RA3AA RA3BB 14 8_001 Неверно", "RA3AA RA3BB 14 1_12345 Неверно"});
    // degrees of distance; the polar and RAEM bonuses second
    expectIn("mnuraem 55N37O", {"RA3AA RA9AA 7 00168N33O 17", "RA3AA UA0AA 7 00169N33O 18/100",
                                "RA3AA RA0FA 7 00143N132O 107", "RA3AA RAEM 7 00155N37O 0/300",
                                "RA3AA UA3BB 7 00190N37O Неверно"});
    expectIn("mnursgb", {"RA3AA G3ABC 1,8 001AB 2/5", "RA3AA DL1ABC 1,8 001 2/5",
                         "RA3AA DL1ABC 3,5 001 0", "RA3AA G3ABC 1,8 001 Неверно"});
}
