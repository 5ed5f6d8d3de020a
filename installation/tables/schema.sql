-- Schema of the two reference databases, vorna-tcm.mdb and vorna-apm.mdb.
--
-- The content comes from the files <Table>.tsv beside this one: UTF-8, tab separated, no quoting,
-- the first line that does not begin with # names the columns. An empty cell is NULL, a cell that
-- holds exactly "" is the empty text. A translated column stands four times, with the suffix
-- .cs, .en, .de or .ru; its first text goes into the plain table, all of them into the sister
-- table _<Table> (jazyk: 1 Czech, 2 English, 3 German, 4 Russian), whose columns carry "j-".
--
-- Foreign keys are deferred, so that the files of one transaction may come in any order.

PRAGMA user_version = 1;

-- Words -----------------------------------------------------------------------------------------

-- 0 is "none": the two midline vessels and the points that are no five-shu point.
CREATE TABLE Elements (
    id           INTEGER PRIMARY KEY,
    elementname  TEXT,
    elementcolor TEXT
);

-- 1 yin, 2 yang.
CREATE TABLE EnergyTypes (
    id     INTEGER PRIMARY KEY,
    energy TEXT
);

-- Places on the body. 1 to 3 are the sides: the last character of an extIndex is one of them, and
-- the text follows that of a place after one blank.
CREATE TABLE Skelet (
    ID      INTEGER PRIMARY KEY,
    hodnota TEXT
);

-- Chart names. The name is the same in all rows of an id; row (id, 1) always exists.
CREATE TABLE GrafyTypy (
    id           INTEGER NOT NULL,
    sloupec      INTEGER NOT NULL,
    nazevGrafu   TEXT,
    nazevSloupce TEXT,
    PRIMARY KEY (id, sloupec)
);

-- Kinds of special points.
CREATE TABLE PointTypes (
    id   INTEGER PRIMARY KEY,
    type TEXT
);

-- 1 the sides differ, 2 below the band, 3 above the band.
CREATE TABLE ProblemTypes (
    problem INTEGER PRIMARY KEY,
    descr   TEXT
);

-- Pathways and points ---------------------------------------------------------------------------

CREATE TABLE Meridians (
    meridian      TEXT NOT NULL COLLATE NOCASE PRIMARY KEY,
    meridianName  TEXT,
    shortName     TEXT,
    china         TEXT,
    description   TEXT,
    "descr-short" TEXT,
    Element       INTEGER NOT NULL REFERENCES Elements (id) DEFERRABLE INITIALLY DEFERRED,
    Energy        INTEGER NOT NULL REFERENCES EnergyTypes (id) DEFERRABLE INITIALLY DEFERRED
);
CREATE INDEX MeridiansByElement ON Meridians (Element, Energy);

-- Povel is the element of a five-shu point, misto the place on the body.
CREATE TABLE Points (
    pointLong TEXT NOT NULL COLLATE NOCASE PRIMARY KEY CHECK (length(pointLong) = 4),
    point     INTEGER NOT NULL,
    Meridian  TEXT NOT NULL COLLATE NOCASE
              REFERENCES Meridians (meridian) DEFERRABLE INITIALLY DEFERRED,
    Povel     INTEGER NOT NULL REFERENCES Elements (id) DEFERRABLE INITIALLY DEFERRED,
    descr     TEXT,
    china     TEXT,
    misto     INTEGER NOT NULL REFERENCES Skelet (ID) DEFERRABLE INITIALLY DEFERRED
);
CREATE UNIQUE INDEX PointsByNumber ON Points (Meridian, point);
CREATE INDEX PointsByElement ON Points (Meridian, Povel);

-- pkMeridian is the pathway that the point serves, which need not be the one on which it lies.
CREATE TABLE SpecPoints (
    pkMeridian TEXT NOT NULL COLLATE NOCASE
               REFERENCES Meridians (meridian) DEFERRABLE INITIALLY DEFERRED,
    pointLong  TEXT NOT NULL COLLATE NOCASE
               REFERENCES Points (pointLong) DEFERRABLE INITIALLY DEFERRED,
    PointType  INTEGER NOT NULL REFERENCES PointTypes (id) DEFERRABLE INITIALLY DEFERRED,
    PRIMARY KEY (pkMeridian, PointType, pointLong)
);
CREATE INDEX SpecPointsByPoint ON SpecPoints (pointLong);

-- The pathway coupled with each pathway (interior and exterior).
CREATE TABLE dvojicedrah (
    meridian     TEXT NOT NULL COLLATE NOCASE PRIMARY KEY
                 REFERENCES Meridians (meridian) DEFERRABLE INITIALLY DEFERRED,
    pairMeridian TEXT NOT NULL COLLATE NOCASE
                 REFERENCES Meridians (meridian) DEFERRABLE INITIALLY DEFERRED
);

-- Which kind of point a kind is paired with, and where: jinaDraha 0 on the same pathway served,
-- 1 on the pathway coupled with it. A kind without a row is paired with nothing.
CREATE TABLE dvojicetypu (
    PointType     INTEGER PRIMARY KEY REFERENCES PointTypes (id) DEFERRABLE INITIALLY DEFERRED,
    pairPointType INTEGER NOT NULL REFERENCES PointTypes (id) DEFERRABLE INITIALLY DEFERRED,
    jinaDraha     INTEGER NOT NULL CHECK (jinaDraha IN (0, 1))
);

-- Five elements: vztah 0 itself, 1 its mother, 2 its child, 3 the element that it controls, 4 the
-- element that controls it.
CREATE TABLE vztahyprvku (
    prvek INTEGER NOT NULL REFERENCES Elements (id) DEFERRABLE INITIALLY DEFERRED,
    vztah INTEGER NOT NULL CHECK (vztah BETWEEN 0 AND 4),
    cil   INTEGER NOT NULL REFERENCES Elements (id) DEFERRABLE INITIALLY DEFERRED,
    PRIMARY KEY (prvek, vztah)
);

-- Measurement sets and chart orders -------------------------------------------------------------

-- One row per point of a set: the slot in the file, the box of the run, the place on charts.
-- meridian is the pathway that the point serves; strana 0 is slots 1 to 12, 1 slots 13 to 24.
CREATE TABLE sadymereni (
    sada         INTEGER NOT NULL CHECK (sada BETWEEN 1 AND 4),
    cisloulozeni INTEGER NOT NULL CHECK (cisloulozeni BETWEEN 1 AND 24),
    poradimereni INTEGER NOT NULL CHECK (poradimereni BETWEEN 1 AND 24),
    poradiGraf   INTEGER NOT NULL CHECK (poradiGraf BETWEEN 1 AND 24),
    extIndex     TEXT NOT NULL COLLATE NOCASE CHECK (length(extIndex) = 4),
    longpoint    TEXT NOT NULL COLLATE NOCASE
                 REFERENCES Points (pointLong) DEFERRABLE INITIALLY DEFERRED,
    strana       INTEGER NOT NULL CHECK (strana IN (0, 1)),
    meridian     TEXT NOT NULL COLLATE NOCASE
                 REFERENCES Meridians (meridian) DEFERRABLE INITIALLY DEFERRED,
    PRIMARY KEY (sada, cisloulozeni),
    UNIQUE (sada, poradimereni),
    UNIQUE (sada, poradiGraf),
    UNIQUE (sada, extIndex)
);
CREATE INDEX SadymereniByMeridian ON sadymereni (sada, meridian, strana);

-- Which slot stands at position sl24 of chart graf; dvojicesloupcu is the pair of columns (or the
-- slice), sloupec the column in it.
CREATE TABLE poradigrafy (
    sada           INTEGER NOT NULL,
    graf           INTEGER NOT NULL,
    sl24           INTEGER NOT NULL CHECK (sl24 BETWEEN 1 AND 24),
    dvojicesloupcu INTEGER NOT NULL CHECK (dvojicesloupcu BETWEEN 1 AND 12),
    sloupec        INTEGER NOT NULL CHECK (sloupec IN (1, 2)),
    cisloulozeni   INTEGER NOT NULL,
    PRIMARY KEY (sada, graf, sl24),
    UNIQUE (sada, graf, dvojicesloupcu, sloupec),
    FOREIGN KEY (sada, cisloulozeni) REFERENCES sadymereni (sada, cisloulozeni)
        DEFERRABLE INITIALLY DEFERRED
);

-- The twelve entries of the element chart: 1 to 6 yin, 7 to 12 yang; elements6 is the column.
CREATE TABLE elements6 (
    sl14      TEXT NOT NULL COLLATE NOCASE PRIMARY KEY,
    elements6 INTEGER NOT NULL CHECK (elements6 BETWEEN 1 AND 6),
    meridian  TEXT NOT NULL COLLATE NOCASE
              REFERENCES Meridians (meridian) DEFERRABLE INITIALLY DEFERRED
);

-- Evaluation and proposals ----------------------------------------------------------------------

-- Evaluation texts: graf 5 the balance chart, graf 6 the energy chart.
CREATE TABLE Therapy_APM (
    graf     INTEGER NOT NULL,
    "column" INTEGER NOT NULL,
    "text"   TEXT,
    PRIMARY KEY (graf, "column")
);

-- Energy therapy, one row per rule; the rule holds for each of the twelve pathways. vztahKde and
-- vztahPovel are relations (vztahyprvku) to the element of the treated pathway: to the element of
-- the pathway that carries the point, and to the element of the point. jinaEnergie 0: the carrying
-- pathway is yin or yang as the treated one is, 1: the other one. kdeP 0 keeps the treated pathway
-- only. typSpecB is the kind that the point then is on the treated pathway, typBP on another one.
-- The rows of problem 1 give a text only and leave the rule empty.
CREATE TABLE Therapy_e (
    therapy     INTEGER PRIMARY KEY,
    problem     INTEGER NOT NULL
                REFERENCES ProblemTypes (problem) DEFERRABLE INITIALLY DEFERRED,
    therapyText TEXT,
    vztahKde    INTEGER CHECK (vztahKde BETWEEN 0 AND 4),
    vztahPovel  INTEGER CHECK (vztahPovel BETWEEN 0 AND 4),
    jinaEnergie INTEGER CHECK (jinaEnergie IN (0, 1)),
    kdeP        INTEGER CHECK (kdeP IN (0, 1)),
    typSpecB    INTEGER REFERENCES PointTypes (id) DEFERRABLE INITIALLY DEFERRED,
    typBP       INTEGER REFERENCES PointTypes (id) DEFERRABLE INITIALLY DEFERRED
);
CREATE INDEX Therapy_eByProblem ON Therapy_e (problem);

-- Meridian therapy, one row per proposal, offered in the order of therapy. meridiantype 1 and 3
-- take the point of kind PointType on the pathway and print the side; 2 takes the paired point
-- (dvojicetypu) of that kind and prints none, so midline points are offered by it.
CREATE TABLE Therapy_m (
    therapy       INTEGER PRIMARY KEY,
    pkproblem     INTEGER NOT NULL
                  REFERENCES ProblemTypes (problem) DEFERRABLE INITIALLY DEFERRED,
    meridiantype  INTEGER NOT NULL CHECK (meridiantype IN (1, 2, 3)),
    PointType     INTEGER NOT NULL REFERENCES PointTypes (id) DEFERRABLE INITIALLY DEFERRED,
    therapyText   TEXT,
    adTherapyText TEXT
);
CREATE INDEX Therapy_mByProblem ON Therapy_m (pkproblem);

-- The texts of all languages --------------------------------------------------------------------
--
-- Without row numbers the rows of a language lie side by side, where a start finds its own.

CREATE TABLE _Meridians (
    jazyk           INTEGER NOT NULL,
    "j-meridian"    TEXT NOT NULL COLLATE NOCASE
                    REFERENCES Meridians (meridian) DEFERRABLE INITIALLY DEFERRED,
    "j-meridianName" TEXT,
    "j-shortName"   TEXT,
    "j-descr-short" TEXT,
    "j-description" TEXT,
    PRIMARY KEY (jazyk, "j-meridian")
) WITHOUT ROWID;

CREATE TABLE _elements (
    jazyk            INTEGER NOT NULL,
    "j-id"           INTEGER NOT NULL REFERENCES Elements (id) DEFERRABLE INITIALLY DEFERRED,
    "j-elementname"  TEXT,
    "j-elementcolor" TEXT,
    PRIMARY KEY (jazyk, "j-id")
) WITHOUT ROWID;

CREATE TABLE _EnergyTypes (
    jazyk      INTEGER NOT NULL,
    "j-id"     INTEGER NOT NULL REFERENCES EnergyTypes (id) DEFERRABLE INITIALLY DEFERRED,
    "j-energy" TEXT,
    PRIMARY KEY (jazyk, "j-id")
) WITHOUT ROWID;

CREATE TABLE _GrafyTypy (
    jazyk            INTEGER NOT NULL,
    "j-id"           INTEGER NOT NULL,
    "j-sloupec"      INTEGER NOT NULL,
    "j-nazevGrafu"   TEXT,
    "j-nazevSloupce" TEXT,
    PRIMARY KEY (jazyk, "j-id", "j-sloupec"),
    FOREIGN KEY ("j-id", "j-sloupec") REFERENCES GrafyTypy (id, sloupec)
        DEFERRABLE INITIALLY DEFERRED
) WITHOUT ROWID;

CREATE TABLE _Points (
    jazyk         INTEGER NOT NULL,
    "j-pointLong" TEXT NOT NULL COLLATE NOCASE
                  REFERENCES Points (pointLong) DEFERRABLE INITIALLY DEFERRED,
    "j-descr"     TEXT,
    PRIMARY KEY (jazyk, "j-pointLong")
) WITHOUT ROWID;

CREATE TABLE _pointTypes (
    jazyk    INTEGER NOT NULL,
    "j-id"   INTEGER NOT NULL REFERENCES PointTypes (id) DEFERRABLE INITIALLY DEFERRED,
    "j-type" TEXT,
    PRIMARY KEY (jazyk, "j-id")
) WITHOUT ROWID;

CREATE TABLE _ProblemTypes (
    jazyk       INTEGER NOT NULL,
    "j-problem" INTEGER NOT NULL
                REFERENCES ProblemTypes (problem) DEFERRABLE INITIALLY DEFERRED,
    "j-descr"   TEXT,
    PRIMARY KEY (jazyk, "j-problem")
) WITHOUT ROWID;

CREATE TABLE _skelet (
    jazyk       INTEGER NOT NULL,
    "j-ID"      INTEGER NOT NULL REFERENCES Skelet (ID) DEFERRABLE INITIALLY DEFERRED,
    "j-hodnota" TEXT,
    PRIMARY KEY (jazyk, "j-ID")
) WITHOUT ROWID;

CREATE TABLE _Therapy_APM (
    jazyk      INTEGER NOT NULL,
    "j-graf"   INTEGER NOT NULL,
    "j-column" INTEGER NOT NULL,
    "j-text"   TEXT,
    PRIMARY KEY (jazyk, "j-graf", "j-column"),
    FOREIGN KEY ("j-graf", "j-column") REFERENCES Therapy_APM (graf, "column")
        DEFERRABLE INITIALLY DEFERRED
) WITHOUT ROWID;

CREATE TABLE _Therapy_e (
    jazyk           INTEGER NOT NULL,
    "j-therapy"     INTEGER NOT NULL
                    REFERENCES Therapy_e (therapy) DEFERRABLE INITIALLY DEFERRED,
    "j-therapyText" TEXT,
    PRIMARY KEY (jazyk, "j-therapy")
) WITHOUT ROWID;

CREATE TABLE _Therapy_m (
    jazyk             INTEGER NOT NULL,
    "j-therapy"       INTEGER NOT NULL
                      REFERENCES Therapy_m (therapy) DEFERRABLE INITIALLY DEFERRED,
    "j-therapytext"   TEXT,
    "j-adtherapytext" TEXT,
    PRIMARY KEY (jazyk, "j-therapy")
) WITHOUT ROWID;

-- Stored queries --------------------------------------------------------------------------------

-- Chart positions. shortName and elementname are of the pathway that the point serves; point,
-- descr and hodnota are of the point itself.
CREATE VIEW qporadigrafy AS
SELECT g.sada           AS sada,
       g.graf           AS graf,
       g.sl24           AS sl24,
       g.dvojicesloupcu AS dvojicesloupcu,
       g.sloupec        AS sloupec,
       s.cisloulozeni   AS cisloulozeni,
       s.extIndex       AS extIndex,
       m.shortName      AS shortName,
       p.point          AS point,
       p.descr          AS descr,
       k.hodnota        AS hodnota,
       s.meridian       AS meridian,
       e.elementname    AS elementname
FROM poradigrafy g
INNER JOIN sadymereni s ON s.sada = g.sada AND s.cisloulozeni = g.cisloulozeni
INNER JOIN Meridians m ON m.meridian = s.meridian
INNER JOIN Elements e ON e.id = m.Element
INNER JOIN Points p ON p.pointLong = s.longpoint
INNER JOIN Skelet k ON k.ID = p.misto;

-- Entries of the element chart, each with the left-hand row of its pathway in set 1.
CREATE VIEW q6elements AS
SELECT x.sl14         AS sl14,
       x.elements6    AS elements6,
       s.cisloulozeni AS cisloulozeni,
       s.extIndex     AS extIndex,
       m.shortName    AS shortName,
       p.point        AS point,
       p.descr        AS descr,
       k.hodnota      AS hodnota,
       s.meridian     AS meridian,
       e.elementname  AS elementname
FROM elements6 x
INNER JOIN sadymereni s ON s.sada = 1 AND s.meridian = x.meridian AND s.strana = 0
INNER JOIN Meridians m ON m.meridian = s.meridian
INNER JOIN Elements e ON e.id = m.Element
INNER JOIN Points p ON p.pointLong = s.longpoint
INNER JOIN Skelet k ON k.ID = p.misto;

-- Special points with their paired points. meridian and pairMeridian are the pathways served,
-- shortName and pairShortName those on which the points lie. The pair columns are NULL where a
-- point has none.
CREATE VIEW Qtherapy_m AS
SELECT s.PointType    AS PointType,
       m.meridianName AS meridianname,
       s.pointLong    AS pointLong,
       o.shortName    AS shortName,
       s.pkMeridian   AS meridian,
       r.PointType    AS pairpointType,
       r.pointLong    AS pairPointLong,
       r.pkMeridian   AS pairMeridian,
       q.shortName    AS pairShortName
FROM SpecPoints s
INNER JOIN Meridians m ON m.meridian = s.pkMeridian
INNER JOIN Points p ON p.pointLong = s.pointLong
INNER JOIN Meridians o ON o.meridian = p.Meridian
INNER JOIN dvojicedrah d ON d.meridian = s.pkMeridian
LEFT JOIN dvojicetypu t ON t.PointType = s.PointType
LEFT JOIN SpecPoints r ON r.PointType = t.pairPointType
                      AND r.pkMeridian = CASE t.jinaDraha WHEN 0 THEN s.pkMeridian
                                                          ELSE d.pairMeridian END
LEFT JOIN Points pr ON pr.pointLong = r.pointLong
LEFT JOIN Meridians q ON q.meridian = pr.Meridian;

-- The rules of energy therapy, worked out for each treated pathway.
CREATE VIEW QTherapy_e AS
SELECT t.problem     AS Problem,
       t.therapy     AS therapy,
       m.meridian    AS lecenaDraha,
       m.shortName   AS lecenaShortName,
       t.therapyText AS therapyText,
       v.cil         AS povelBodu,
       t.typSpecB    AS typSpecB,
       t.kdeP        AS kdeP,
       t.typBP       AS typBP,
       w.cil         AS kde,
       CASE t.jinaEnergie WHEN 0 THEN m.Energy ELSE 3 - m.Energy END AS Energy
FROM Therapy_e t
INNER JOIN Meridians m
INNER JOIN vztahyprvku v ON v.prvek = m.Element AND v.vztah = t.vztahPovel
INNER JOIN vztahyprvku w ON w.prvek = m.Element AND w.vztah = t.vztahKde;
