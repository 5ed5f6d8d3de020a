-- Schema of klienti.mdb, the client database. It comes without rows: every installation fills its
-- own. All values but the key are text, as the card's fields hold them.

PRAGMA user_version = 1;

-- stav is the index of the marital status from 0, -1 when none; narozeni is DD.MM.YYYY, or
-- __.__.____ when not filled; zalozeni and poslakce are moments in the machine's date format.
-- intid names the client's folder. It is not unique: a new card that is saved twice stands twice.
CREATE TABLE klienti (
    id        INTEGER PRIMARY KEY AUTOINCREMENT,
    prijmeni  TEXT,
    jmeno     TEXT,
    titulpred TEXT,
    titulza   TEXT,
    adresa    TEXT,
    stav      TEXT,
    email     TEXT,
    telefon   TEXT,
    rc        TEXT,
    adresa2   TEXT,
    povolani  TEXT,
    telefon2  TEXT,
    narozeni  TEXT,
    intid     TEXT COLLATE NOCASE,
    zalozeni  TEXT,
    poslakce  TEXT
);
CREATE INDEX KlientiByIntid ON klienti (intid);
