// Points and exchange checks of the DX contests: real QSOs logged through the entry line, one
// table per contest, grouped by what the rule reads. Own station RA3AA (European Russia) unless
// a row says otherwise. The plain serial check, shared by many contests, is tried on a few.
#include "scoringfixture.h"

using Scoring = hfc::test::ScoringFixture;

TEST_F(Scoring, ByCountryAndContinent) {
    expectIn("mnucqww 16",
             {"RA3AA DL1ABC 14 . 1", "W1AW K3LR 14 . 3", // Europe or not, whoever works
              "RA3AA UA3BBB 14 . 0", "W1AW UA3BBB 14 . 3", "RA3AA DL1ABC 14 41 Неверно"});
    expectIn("mnucqm", {"RA3AA UA3BBB 14 001 1", "RA3AA DL1ABC 14 001 2",
                        "RA3AA JA1XYZ 14 001 3", // Asia: another continent from UA3
                        "UA9AA JA1XYZ 14 001 2", "DL1ABC DL2XYZ 14 001 1", "DL1ABC F5ABC 14 001 2",
                        "RA3AA DL1ABC/MM 14 001 3", "RA3AA DL1ABC 14 12345 Неверно"});
    expectIn("mnucro", {"RA3AA 9A1AA 3,5 001 10", "RA3AA 9A1AA 14 001 6", "RA3AA W1AW 21 001 3",
                        "RA3AA DL1ABC 14 001 1"});
    expectIn("mnuwpx", {"RA3AA DL1ABC 14 001 1", "RA3AA DL1ABC 7 001 2", "RA3AA W1AW 7 001 6",
                        "RA3AA W1AW sat 001 0",
                        "W1AW VE3AA 14 001 2", // North America within itself
                        "W1AW K3LR 14 001 1"});
    expectIn("mnuiaru 29", {"RA3AA DL1ABC 14 . 3", // the ITU zone pre-filled from the call
                            "RA3AA UA3BBB 14 . 1", "RA3AA W1AW 14 . 5",
                            "RA3AA DL0HQ 14 DARC 1", // a society's headquarters
                            "RA3AA JA1XYZ 14 95 Неверно"});
    expectIn("mnueuhf 95", {"RA3AA DL1ABC 14 98 1", "RA3AA W1AW 14 80 0", "W1AW DL1ABC 14 98 0",
                            "RA3AA DL1ABC 14 1 Неверно"});
    expectIn("mnuwae",
             {"RA3AA W1AW 14 001 1", "RA3AA DL1ABC 14 001 0", "RA3AA W1AW 1,8 001 0",
              "W1AW DL1ABC 14 001 1", "W1AW K3LR 14 001 0", "RA3AA W1AW 14 12345 Неверно"});
    expectIn("mnucq160 16",
             {"RA3AA W1AW 1,8 CT 10", "RA3AA DL1ABC 1,8 14 5", "RA3AA UA3BBB 1,8 16 2",
              "RA3AA DL1ABC 1,8 DL 5", "RA3AA DL1ABC 3,5 14 0", "RA3AA DL1ABC/MM 1,8 14 5",
              "RA3AA DL1ABC 1,8 41 Неверно"});
}

TEST_F(Scoring, OneRegionWorksTheOthers) {
    expectIn("mnuaa 45", {"RA3AA JA1XYZ 14 38 1", "RA3AA JA1XYZ 1,8 38 3", "RA3AA JA1XYZ 3,5 38 2",
                          "RA3AA JA1XYZ 28 00 2", "RA3AA DL1ABC 14 38 0", "RA9AA RA9AB 14 38 0",
                          "RA9AA RA9XY 14 38 3", // Komi is in Europe by cty.dat
                          "RA9AA DL1ABC 1,8 38 9", "RA3AA JA1XYZ 14 4 Неверно"});
    expectIn("mnuvkzl", {"RA3AA VK2ABC 1,8 001 20", "RA3AA ZL1AA 14 001 1", "RA3AA VK2ABC 28 001 3",
                         "RA3AA DL1ABC 14 001 0", "VK2ABC DL1ABC 14 001 1"});
    expectIn("mnusac", {"RA3AA SM5AA 14 001 1", "RA3AA DL1ABC 14 001 0", "RA3AA SM5AA 1,8 001 0",
                        "W1AW SM5AA 7 001 3", "W1AW OH2BH 14 001 1", "SM5AA OH2BH 14 001 0",
                        "SM5AA DL1ABC 14 001 2", "SM5AA W1AW 14 001 3"});
}

TEST_F(Scoring, PortableMaritimeAndSpecialStations) {
    expectIn("mnufd",
             {"RA3AA DL1ABC 14 001 0", "RA3AA DL1ABC/P 14 001 4", "RA3AA W1AW/P 14 001 6",
              "RA3AA/P DL1ABC 14 001 2", "RA3AA/P W1AW 14 001 3", "RA3AA/P DL1ABC/P 14 001 4"});
    expectIn("mnutops",
             {"RA3AA UA3BBB 3,5 001 1",
              "RA3AA RA6AA 3,5 001 2", // another call area of a large country
              "RA3AA DL1ABC 3,5 001/123 4", "RA3AA W1AW 3,5 001 6", "RA3AA DL1ABC/MM 3,5 001 6",
              "RA3AA GB6AQ 3,5 001 12", "RA3AA DL1ABC 14 001 0", "RA3AA DL1ABC 3,5 001/ Неверно"});
    expectIn("mnuarrl", {"RA3AA W1AW 28 CT 4", "RA3AA W1AW 28 CT 2 SSB", "RA3AA DL1ABC 28 001 4",
                         "RA3AA XE1ABC 28 JAL 4", "RA3AA DL1ABC/MM 28 2 4", "RA3AA DL1ABC 14 001 0",
                         "RA3AA DL1ABC/MM 28 4 Неверно"});
}

TEST_F(Scoring, FromTheExchange) {
    expectIn("mnuiota", {"RA3AA DL1ABC 14 001EU005 15", "RA3AA W1AW 14 001 2",
                         "RA3AA DL1ABC 1,8 001EU005 0", "RA3AA DL1ABC 14 001EU05 Неверно"});
    expectIn("mnuwwg KO85",
             {"RA3AA DL1ABC 1,8 JO62 16", // per started 500 km, more on low bands
              "RA3AA DL1ABC 3,5 JO62 8", "RA3AA DL1ABC 14 JO62 4", "RA3AA W1AW 14 FN31 15",
              "RA3AA UA3BBB 14 KO85 1", "RA3AA DL1ABC 14 KO8 Неверно"});
    expectIn("mnutoec KO85",
             {"RA3AA DL1ABC 21 JO62 1", "RA3AA W1AW 21 FN31 3", "RA3AA DL1ABC 14 ZZ99 Неверно"});
}

TEST_F(Scoring, OnePointContestsKeepTheirRules) {
    expectIn("mnumarc", {"RA3AA W1AW 7 001 1"});
    expectIn("mnuagcw", {"RA3AA DL1ABC 7 001 1", "RA3AA W1AW 3,5 0011234 1",
                         "RA3AA DL1ABC 7 0123456789 Неверно"});
    expectIn("mnubal",
             {"RA3AA ES1AA 3,5 001 10", "RA3AA LY1AA 3,5 001 10 SSB", "RA3AA SM5AA 3,5 001 1"});
}
