// Points and exchange checks of the contests around an organising country, one table of real
// QSOs per contest, logged through the entry line.
#include "scoringfixture.h"

using Scoring = hfc::test::ScoringFixture;

TEST_F(Scoring, Ari) {
    select("mnuari");
    expectAll({
        {"RA3AA", "I2XYZ", "14", "MI", "10"},
        {"RA3AA", "IT9ABC", "14", "BT", "10"}, // a province newer than the window
        {"RA3AA", "UA3BBB", "14", "001", "0"},
        {"RA3AA", "DL1ABC", "14", "001", "1"},
        {"RA3AA", "W1AW", "14", "001", "3"},
        {"RA3AA", "I2XYZ", "14", "XX", "Неверно"},
        {"RA3AA", "DL1ABC", "14", "MI", "Неверно"},
    });
}

TEST_F(Scoring, Ea) {
    select("mnuea");
    expectAll({
        {"RA3AA", "EA1ABC", "14", "M", "3"},
        {"RA3AA", "EA8AB", "14", "TF", "3"},
        {"RA3AA", "DL1ABC", "14", "001", "1"},
        {"EA1ABC", "EA5XYZ", "14", "V", "2"},
        {"EA1ABC", "DL1ABC", "14", "001", "1"},
        {"RA3AA", "EA1ABC", "14", "XX", "Неверно"},
    });
}

TEST_F(Scoring, EsOpen) {
    select("mnues");
    expectAll({
        {"RA3AA", "ES1AA", "3,5", "001", "2"},
        {"RA3AA", "ES1AA", "7", "001", "1", "SSB"},
        {"RA3AA", "ES1AA", "14", "001", "0"},
        {"RA3AA", "DL1ABC", "3,5", "001", "0"},
        {"ES1AA", "DL1ABC", "3,5", "001", "2"},
        {"ES1AA", "RA3AA", "3,5", "001", "0"},
        {"ES1AA", "EW1AA", "3,5", "001", "0"},
        {"RA3AA", "ES1AA", "3,5", "12345", "Неверно"},
    });
}

TEST_F(Scoring, Hungary) {
    select("mnuha");
    expectAll({
        {"RA3AA", "HA5AA", "14", "BP", "10"},
        {"RA3AA", "HA5AA", "14", "1234", "10"}, // an HA-DX Club member
        {"RA3AA", "DL1ABC", "14", "001", "2"},
        {"RA3AA", "W1AW", "14", "001", "5"},
        {"RA3AA", "HA5AA", "14", "XX", "Неверно"},
    });
}

TEST_F(Scoring, HolylandAndHelvetiaKeepTheirRules) {
    select("mnuhol");
    expectAll({
        {"RA3AA", "4X4AA", "7", "F15TA", "2"},
        {"RA3AA", "4X4AA", "14", "F15TA", "1"},
        {"RA3AA", "DL1ABC", "14", "001", "1"},
        {"RA3AA", "4X4AA", "14", "F15", "Неверно"},
    });
    select("mnuhel");
    expectAll({
        {"RA3AA", "HB9ABC", "14", "ZH", "3"},
        {"RA3AA", "DL1ABC", "14", "001", "0"},
        {"RA3AA", "HB9ABC", "14", "XX", "Неверно"},
    });
}

TEST_F(Scoring, Jidx) {
    select("mnujid", "16");
    expectAll({
        {"RA3AA", "JA1XYZ", "1,8", "10", "4"},
        {"RA3AA", "JA1XYZ", "3,5", "10", "2"},
        {"RA3AA", "JA1XYZ", "14", "10", "1"},
        {"RA3AA", "JA1XYZ", "28", "10", "2"},
        {"RA3AA", "DL1ABC", "14", "14", "0"},
        {"JA1XYZ", "JA2ABC", "14", "20", "0"},
        {"JA1XYZ", "DL1ABC", "14", "14", "1"},
        {"RA3AA", "JA1XYZ", "14", "51", "Неверно"},
    });
}

TEST_F(Scoring, KcjKeepsItsRule) {
    select("mnukcj", "EU");
    expectAll({
        {"RA3AA", "JA1XYZ", "14", "TK", "1"},
        {"RA3AA", "JA1XYZ", "14", "T", "Неверно"},
    });
}

TEST_F(Scoring, LzDxAndLzOpenKeepTheirRules) {
    select("mnulz", "29");
    expectAll({
        {"RA3AA", "LZ1AA", "14", nullptr, "6"},
        {"RA3AA", "LZ1AA", "14", "99", "6"}, // their district does not fit the box: unchecked
        {"RA3AA", "DL1ABC", "14", nullptr, "1"},
        {"RA3AA", "W1AW", "14", nullptr, "3"},
        {"RA3AA", "DL1ABC", "14", "91", "Неверно"},
    });
    select("mnulzo");
    expectAll({
        {"RA3AA", "UA3BBB", "14", "001000", "1"},
        {"RA3AA", "DL1ABC", "14", "012005", "2"},
        {"RA3AA", "DL1ABC", "14", "0120", "Неверно"},
    });
}

TEST_F(Scoring, OkOm) {
    select("mnuok");
    expectAll({
        {"RA3AA", "OK1RR", "14", "APA", "10"},
        {"RA3AA", "OM3AA", "14", "BAA", "10"}, // a Slovak district
        {"RA3AA", "DL1ABC", "14", "", "3"},    // a serial: logged with the button
        {"RA3AA", "W1AW", "14", "", "5"},
        {"RA3AA", "DL1ABC/MM", "14", "", "5"},
        {"DL1ABC", "RA3AA", "14", "", "0"},
        {"OK1RR", "OK2AA", "14", "BBN", "2"},
        {"OK1RR", "DL1ABC", "14", "", "3"},
        {"RA3AA", "OK1RR", "14", "ABC", "Неверно"},
    });
}

TEST_F(Scoring, Pacc) {
    select("mnupacc");
    expectAll({
        {"RA3AA", "PA3ABC", "14", "NH", "1"},
        {"RA3AA", "DL1ABC", "14", "", "0"},
        {"RA3AA", "PA3ABC", "14", "XX", "Неверно"},
    });
}

TEST_F(Scoring, Raem) {
    select("mnuraem", "55N37O");
    expectAll({
        {"RA3AA", "UA3BBB", "14", "00155N37O", "0"},
        {"RA3AA", "RA9AA", "14", "00168N33O", "17"},
        {"RA3AA", "RA9AA", "14", "00169N33O", "18/100"},
        {"RA3AA", "RA0AA", "14", "00143N132O", "107"},
        {"RA3AA", "RAEM", "14", "00155N37O", "0/300"},
        {"RA3AA", "RA9AA", "14", "00190N37O", "Неверно"},
        {"RA3AA", "RA9AA", "14", "0015537O", "Неверно"},
    });
}

TEST_F(Scoring, Ref) {
    select("nmuref");
    expectAll({
        {"RA3AA", "F5ABC", "14", "75", "1"},
        {"RA3AA", "F5ABC", "14", "2A", "1"},
        {"RA3AA", "FG5AA", "14", "FG", "3"},
        {"RA3AA", "DL1ABC", "14", "001", "0"},
        {"F5ABC", "DL1ABC", "14", "001", "1"},
        {"F5ABC", "W1AW", "14", "001", "3"},
        {"RA3AA", "F5ABC", "14", "96", "Неверно"},
        {"RA3AA", "FG5AA", "14", "75", "Неверно"},
    });
}

TEST_F(Scoring, Rsgb) {
    select("mnursgb");
    expectAll({
        {"RA3AA", "G3ABC", "1,8", "001AB", "2/5"},
        {"RA3AA", "DL1ABC", "1,8", "001", "2/5"},
        {"RA3AA", "DL1ABC", "3,5", "001", "0"},
        {"RA3AA", "G3ABC", "1,8", "001", "Неверно"},
    });
}

TEST_F(Scoring, RussianDx) {
    select("mnurus", "MA");
    expectAll({
        {"RA3AA", "RA3BB", "14", nullptr, "2"},
        {"RA3AA", "RA9AA", "14", nullptr, "5"},
        {"RA3AA", "DL1ABC", "14", "001", "3"},
        {"RA3AA", "W1AW", "14", "001", "5"},
        {"RA3AA", "DL1ABC/MM", "14", "001", "5"},
        {"DL1ABC", "RA3BB", "14", nullptr, "10"},
        {"DL1ABC", "DL2XYZ", "14", "001", "2"},
        {"DL1ABC", "F5ABC", "14", "001", "3"},
        {"RA3AA", "RA3BB", "14", "ZZ", "Неверно"},
        {"RA3AA", "DL1ABC", "14", "MA", "Неверно"},
    });
}

TEST_F(Scoring, SpDx) {
    select("mnusp");
    expectAll({
        {"RA3AA", "SP9XX", "14", "K", "3"},
        {"RA3AA", "DL1ABC", "14", "", "0"},
        {"SP9XX", "SP5AA", "14", "W", "3"},
        {"SP9XX", "DL1ABC", "14", "", "1"},
        {"SP9XX", "W1AW", "14", "", "3"},
        {"RA3AA", "SP9XX", "14", "X", "Неверно"},
    });
}

TEST_F(Scoring, Uba) {
    select("mnuuba");
    expectAll({
        {"RA3AA", "ON4AA", "14", "001ANT", "10"},
        {"RA3AA", "DL1ABC", "14", "001", "3"},
        {"RA3AA", "W1AW", "14", "001", "1"},
        {"RA3AA", "UA3BBB", "14", "001", "1"},
        {"RA3AA", "ON4AA", "14", "001AN", "Неверно"},
    });
}

TEST_F(Scoring, Ukraine) {
    select("mnuukr");
    expectAll({
        {"RA3AA", "UR5AA", "14", "KI", "10"},
        {"RA3AA", "UR5AA", "14", "ZH", "10"},
        {"RA3AA", "UA3BBB", "14", "001", "1"},
        {"RA3AA", "DL1ABC", "14", "001", "2"},
        {"RA3AA", "W1AW", "14", "001", "3"},
        {"UR5AA", "UR4AA", "14", "KI", "1"},
        {"UR5AA", "DL1ABC", "14", "001", "2"},
        {"RA3AA", "UR5AA", "14", "XX", "Неверно"},
    });
}

TEST_F(Scoring, WagKeepsItsRule) {
    select("mnuwag");
    expectAll({
        {"RA3AA", "DL1ABC", "14", "B01", "3"},
        {"RA3AA", "DL1ABC", "14", "NM", "3"},
        {"RA3AA", "DL1ABC", "14", "DA0HQ", "3"}, // a special DOK
        {"RA3AA", "OE1ABC", "14", "001", "0"},
        {"RA3AA", "DL1ABC", "14", "1", "Неверно"},
    });
}

TEST_F(Scoring, YoDx) {
    select("mnuyo", "29");
    expectAll({
        {"RA3AA", "YO3AA", "14", "BU", "8"},
        {"RA3AA", "DL1ABC", "14", nullptr, "2"},
        {"RA3AA", "W1AW", "14", nullptr, "4"},
        {"RA3AA", "UA3BBB", "14", nullptr, "1"},
        {"RA3AA", "DL1ABC/MM", "14", nullptr, "4"},
        {"RA3AA", "DL1ABC", "1,8", nullptr, "0"},
        {"YO3AA", "YO5AA", "14", "CJ", "0"},
        {"YO3AA", "DL1ABC", "14", nullptr, "4"},
        {"YO3AA", "W1AW", "14", nullptr, "8"},
        {"RA3AA", "YO3AA", "14", nullptr, "Неверно"}, // the zone, where a county is due
    });
}

TEST_F(Scoring, YuDx) {
    select("mnuyu", "29");
    expectAll({
        {"RA3AA", "YU1AA", "14", nullptr, "10"},
        {"RA3AA", "DL1ABC", "14", nullptr, "0"},
        {"YU1AA", "YU7AA", "14", nullptr, "1"},
        {"RA3AA", "YU1AA", "14", "91", "Неверно"},
    });
}

TEST_F(Scoring, Championship) {
    select("mnuchemp");
    expectAll({
        {"RA3AA", "RA3BB", "14", "1 001", "11/1"},
        {"RA3AA", "RA3BB", "14", "3 001", "13/1"},
        {"RA3AA", "RA9AA", "14", "7 001", "25/1"},
        {"RA3AA", "DL1ABC", "14", "2 001", "0"},
        {"RA3AA", "RA3BB", "14", "8 001", "Неверно"},
        {"RA3AA", "RA3BB", "14", "1 12345", "Неверно"},
    });
}
