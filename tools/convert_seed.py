#!/usr/bin/env python3
"""Regenerate the seed tables in resources/seed/ from the community reference files.

tbldxcc.csv  <- cty.dat (AD1C country file, Debian package hamradio-files)
tblrus.csv   <- ctyfiles/AreaOK1RR.tbl (Debian package cqrlog-data)
tblhelp.csv  <- tools/seed_rules.txt (rules summaries written for this program)

Standard library only. Anything dropped or overridden is reported on stderr.
"""

import argparse
import csv
import itertools
import re
import string
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
DEFAULT_CTY = Path("/usr/share/hamradio-files/cty.dat")
DEFAULT_AREA = Path("/usr/share/cqrlog/ctyfiles/AreaOK1RR.tbl")
DEFAULT_RULES = ROOT / "tools" / "seed_rules.txt"
DEFAULT_OUT = ROOT / "resources" / "seed"

# The contest codes of the menu, in menu order; tblhelp gets exactly one rules row for each.
CONTEST_CODES = (
    "chemp aa agcw ari arrl10 bal cqm cq160 cro cqww ea ES euhf fd HA hol hel iaru jid kcj "
    "lzd lzo marc ok pacc raem ref rsgb rudx sac sp toec tops uba iota ukr wae wag wpx wwg "
    "vkzl yo yu"
).split()

# The district logic recognises Russia by this country name, whichever of the three
# Russian entities a prefix belongs to.
RUSSIAN_PREFIXES = {"UA", "UA2", "UA9"}
RUSSIAN_NAME = "RUSSIAN"
STRANA_WIDTH = 14

# DXCC entity numbers of European Russia, Asiatic Russia and Kaliningrad in AreaOK1RR.tbl.
RUSSIAN_DXCC = {"54", "15", "126"}
# The 2010 call-sign plan took effect on this date; older allocations are ignored.
PLAN_2010 = "2010/01/21"

DIGITS = set(string.digits)
LETTERS = set(string.ascii_uppercase)


def warn(msg):
    print(msg, file=sys.stderr)


def write_csv(path, header, rows):
    with open(path, "w", encoding="utf-8", newline="") as f:
        w = csv.writer(f, lineterminator="\n")
        w.writerow(header)
        w.writerows(rows)


# ---------------------------------------------------------------- cty.dat -> tbldxcc

TOKEN_RE = re.compile(r"^(=?)([A-Z0-9/]+)((?:\(\d+\)|\[\d+\]|<[^>]*>|\{[A-Z]{2}\}|~[^~]*~)*)$")


def zone(text):
    return str(int(text))


def read_cty(path):
    """Yield (name, cq, itu, cont, primary, [prefix tokens]) per entity."""
    entity = None
    tokens = []
    buf = ""
    with open(path, encoding="latin-1") as f:
        for line in f:
            line = line.rstrip("\r\n")
            if not line.strip():
                continue
            if not line[0].isspace():
                if entity is not None:
                    raise ValueError(f"cty.dat: entity {entity[0]!r} has no closing ';'")
                parts = [p.strip() for p in line.split(":")]
                if len(parts) < 8:
                    raise ValueError(f"cty.dat: bad header line {line!r}")
                name, cq, itu, cont, _lat, _lon, _utc, primary = parts[:8]
                entity = (name, zone(cq), zone(itu), cont, primary)
                tokens, buf = [], ""
                continue
            if entity is None:
                raise ValueError(f"cty.dat: prefix line outside an entity: {line!r}")
            buf += line.strip()
            if buf.endswith(";"):
                tokens = [t for t in buf[:-1].split(",") if t]
                yield (*entity, tokens)
                entity = None
    if entity is not None:
        raise ValueError(f"cty.dat: entity {entity[0]!r} has no closing ';'")


def build_dxcc(cty_path):
    rows = {}  # prf -> row, first one wins
    owner = {}  # prf -> entity name, for the duplicate report
    primaries = []
    for name, cq, itu, cont, primary, tokens in read_cty(cty_path):
        pref = primary.lstrip("*")
        if pref in RUSSIAN_PREFIXES:
            strana = RUSSIAN_NAME
        else:
            strana = name.upper()[:STRANA_WIDTH].rstrip(" ,")
        primaries.append((pref, name, strana, cont, itu, cq))
        for tok in tokens:
            m = TOKEN_RE.match(tok)
            if not m:
                warn(f"tbldxcc: unreadable token {tok!r} in {name}, skipped")
                continue
            _exact, prf, extra = m.groups()
            t_cq = re.search(r"\((\d+)\)", extra)
            t_itu = re.search(r"\[(\d+)\]", extra)
            t_cont = re.search(r"\{([A-Z]{2})\}", extra)
            row = (
                prf,
                pref,
                strana,
                t_cont.group(1) if t_cont else cont,
                zone(t_itu.group(1)) if t_itu else itu,
                zone(t_cq.group(1)) if t_cq else cq,
            )
            if prf in rows:
                warn(f"tbldxcc: duplicate prf {prf} in {name}, kept the one of {owner[prf]}")
                continue
            rows[prf] = row
            owner[prf] = name
    # cty.dat lists some entities only by shorter prefixes (European Russia is "R,U"), yet
    # the primary prefix is a valid call beginning too; add it where nothing claims it.
    for pref, name, strana, cont, itu, cq in primaries:
        if "/" in pref or pref in rows:
            continue
        rows[pref] = (pref, pref, strana, cont, itu, cq)
        owner[pref] = name
        warn(f"tbldxcc: added primary prefix {pref} of {name}")
    return [rows[k] for k in sorted(rows)]


# ---------------------------------------------------------------- AreaOK1RR.tbl -> tblrus

def parse_pattern(tok):
    """Split a call pattern into a list of character sets, or None if it is not one.

    [A-C] is a class, '#' any digit, '%' any letter, '?' any character. The wildcards are
    kept as distinct objects so that callers can tell "any digit" from a listed digit.
    """
    out = []
    i = 0
    while i < len(tok):
        c = tok[i]
        if c == "[":
            j = tok.find("]", i)
            if j < 0:
                return None
            body = tok[i + 1 : j]
            chars = set()
            k = 0
            while k < len(body):
                if k + 2 < len(body) and body[k + 1] == "-":
                    lo, hi = body[k], body[k + 2]
                    chars.update(chr(x) for x in range(ord(lo), ord(hi) + 1))
                    k += 3
                else:
                    chars.add(body[k])
                    k += 1
            out.append(frozenset(chars))
            i = j + 1
        elif c == "#":
            out.append("#")
            i += 1
        elif c == "%":
            out.append("%")
            i += 1
        elif c == "?":
            out.append("?")
            i += 1
        elif c.isalnum():
            out.append(frozenset(c))
            i += 1
        else:
            return None
    return out


def district_keys(tok):
    """Keys "digit+letter" a call pattern covers, as the district key cut would see them."""
    if "/" in tok:
        return set()
    sets = parse_pattern(tok)
    if not sets or sets[0] not in (frozenset("R"), frozenset("U")):
        return set()
    for pos in (1, 2):
        if pos + 1 >= len(sets):
            return set()
        d, l = sets[pos], sets[pos + 1]
        if isinstance(d, frozenset) and d <= DIGITS:
            if not (isinstance(l, frozenset) and l <= LETTERS):
                return set()
            return {a + b for a, b in itertools.product(d, l)}
        if not (isinstance(d, frozenset) and d <= LETTERS):
            return set()
    return set()


CODE_RE = re.compile(r"\(([A-Z]{2})\)")


def clean_region_name(name):
    name = re.sub(r"^Russia \((European|Asiatic)\),\s*", "", name)
    name = re.sub(r"\s*\([A-Z]{2}\)", "", name)
    name = re.sub(r",?\s*(1st|2nd|3rd|4th) Class|,?\s*(Club|Special) Station", "", name)
    name = re.sub(r"\s+\)", ")", name)
    return re.sub(r"\s+", " ", name).strip(" ,")


def build_rus(area_path):
    best = {}  # key -> (rank, row, line number)
    reported = set()
    with open(area_path, encoding="latin-1") as f:
        for lineno, line in enumerate(f, 1):
            fields = line.rstrip("\r\n").split("|")
            if len(fields) < 11:
                continue
            pats, name, _cont, _utc, _lat, _lon, itu, cq, rda, _flag, tail = fields[:11]
            dates, _, dxcc = tail.partition("=")
            if dxcc not in RUSSIAN_DXCC:
                continue
            code = CODE_RE.search(name)
            if not code:
                continue
            start, dash, end = dates.partition("-")
            # Only allocations of the 2010 plan that are still in force.
            if not dash or end or start < PLAN_2010:
                continue
            row_tail = (code.group(1), clean_region_name(name), rda.strip(), zone(cq), zone(itu))
            # The "1st Class" lines describe the plan itself; island, club and special-station
            # lines are refinements and only fill keys the plan lines leave open.
            rank = 0 if "1st Class" in name else 1
            for tok in pats.split():
                for key in district_keys(tok):
                    prev = best.get(key)
                    if prev is None or rank < prev[0]:
                        best[key] = (rank, (key, *row_tail), lineno)
                    elif rank == prev[0] and prev[1][1] != code.group(1):
                        clash = (key, prev[2], lineno)
                        if clash not in reported:
                            reported.add(clash)
                            warn(
                                f"tblrus: {key} is {code.group(1)} on line {lineno} but "
                                f"{prev[1][1]} on line {prev[2]}; kept the earlier"
                            )
    order = "1234567890"
    keys = sorted(best, key=lambda k: (order.index(k[0]), k[1]))
    return [best[k][1] for k in keys]


# ---------------------------------------------------------------- seed_rules.txt -> tblhelp

def read_rules(path):
    texts = {}
    code = None
    lines = []

    def close():
        if code is None:
            return
        while lines and not lines[-1].strip():
            lines.pop()
        if not 3 <= len(lines) <= 8:
            raise ValueError(f"{path}: {code} has {len(lines)} lines, expected 3-8")
        text = "\n".join(lines)
        try:
            text.encode("cp1251")
        except UnicodeEncodeError as e:
            raise ValueError(f"{path}: {code} has a character outside Windows-1251: {e}")
        texts[code] = text

    with open(path, encoding="utf-8") as f:
        for raw in f:
            line = raw.rstrip("\r\n").rstrip()
            if line.startswith("#"):
                continue
            m = re.match(r"^== (\S+)$", line)
            if m:
                close()
                code = m.group(1)
                if code in texts:
                    raise ValueError(f"{path}: {code} given twice")
                lines = []
            elif code is not None and (line or lines):
                lines.append(line)
    close()
    missing = [c for c in CONTEST_CODES if c not in texts]
    extra = [c for c in texts if c not in CONTEST_CODES]
    if missing or extra:
        raise ValueError(f"{path}: missing {missing}, unknown {extra}")
    return [(c, texts[c], "", "", "", "") for c in CONTEST_CODES]


def main():
    ap = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    ap.add_argument("--cty", type=Path, default=DEFAULT_CTY, help="cty.dat")
    ap.add_argument("--area", type=Path, default=DEFAULT_AREA, help="AreaOK1RR.tbl")
    ap.add_argument("--rules", type=Path, default=DEFAULT_RULES, help="seed_rules.txt")
    ap.add_argument("--out", type=Path, default=DEFAULT_OUT, help="output folder")
    args = ap.parse_args()

    try:
        dxcc = build_dxcc(args.cty)
        rus = build_rus(args.area)
        helprows = read_rules(args.rules)
    except (OSError, ValueError) as e:
        sys.exit(f"convert_seed: {e}")

    args.out.mkdir(parents=True, exist_ok=True)
    write_csv(args.out / "tbldxcc.csv", ["prf", "PREF", "strana", "kont", "iaru", "cq"], dxcc)
    write_csv(args.out / "tblrus.csv", ["pref", "kodsrr", "gorod", "kodcrk", "cq", "itu"], rus)
    write_csv(
        args.out / "tblhelp.csv",
        ["CONTEST", "TXTHELP", "rezgod", "rezmod", "rezul", "rezfile"],
        helprows,
    )
    warn(f"tbldxcc: {len(dxcc)} rows, tblrus: {len(rus)} rows, tblhelp: {len(helprows)} rows")


if __name__ == "__main__":
    main()
