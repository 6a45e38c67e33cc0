-- The Tabra demo database: customers, products, orders and their details, with a
-- view. Run by make-demo-data.sh with the sqlite3 tool on an empty file. The data are
-- made up but stable: every value follows from the row number.

PRAGMA journal_mode = OFF;
PRAGMA synchronous = OFF;
PRAGMA foreign_keys = ON;

CREATE TABLE Customers (
    CustomerID INTEGER PRIMARY KEY AUTOINCREMENT,
    CompanyName VARCHAR(60) NOT NULL,
    ContactName VARCHAR(40),
    City VARCHAR(30),
    Country VARCHAR(30),
    Phone VARCHAR(24),
    CreditLimit DECIMAL(12,2),
    CustomerSince DATE
);

CREATE TABLE Products (
    ProductID INTEGER PRIMARY KEY AUTOINCREMENT,
    ProductName VARCHAR(50) NOT NULL,
    Category VARCHAR(30),
    UnitPrice DECIMAL(10,2) NOT NULL,
    UnitsInStock INTEGER,
    Discontinued INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE Orders (
    OrderID INTEGER PRIMARY KEY AUTOINCREMENT,
    CustomerID INTEGER NOT NULL REFERENCES Customers (CustomerID),
    OrderDate DATE NOT NULL,
    ShippedDate DATETIME,
    Freight DECIMAL(10,2),
    ShipCity VARCHAR(30),
    Remarks VARCHAR(200)
);

CREATE TABLE "Order Details" (
    OrderID INTEGER NOT NULL REFERENCES Orders (OrderID),
    ProductID INTEGER NOT NULL REFERENCES Products (ProductID),
    UnitPrice DECIMAL(10,2) NOT NULL,
    Quantity INTEGER NOT NULL,
    Discount DECIMAL(4,2) NOT NULL DEFAULT 0,
    PRIMARY KEY (OrderID, ProductID)
);

CREATE INDEX OrdersByCustomer ON Orders (CustomerID);
CREATE INDEX OrdersByDate ON Orders (OrderDate);

CREATE VIEW "Order Totals" AS
SELECT o.OrderID, c.CompanyName, o.OrderDate,
       ROUND(SUM(d.UnitPrice * d.Quantity * (1 - d.Discount)), 2) AS Total
FROM Orders o
JOIN Customers c ON c.CustomerID = o.CustomerID
JOIN "Order Details" d ON d.OrderID = o.OrderID
GROUP BY o.OrderID, c.CompanyName, o.OrderDate;

BEGIN;

-- 500 customers from name parts, with cities of many scripts.
WITH RECURSIVE
    seq(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM seq WHERE n < 500),
    surnames(i, name) AS (VALUES
        (0, 'Müller'), (1, 'Schäfer'), (2, 'Ωmega'), (3, 'Øresund'), (4, 'Ærø'), (5, 'Çelik'),
        (6, 'Dvořák'), (7, 'Jönsson'), (8, 'Núñez'), (9, 'Łukasiewicz'), (10, 'O''Brien'),
        (11, 'Ferreira'), (12, 'Παπαδόπουλος'), (13, 'Иванов'), (14, 'Yamada 山田'), (15, 'Smith'),
        (16, 'García'), (17, 'Nguyễn'), (18, 'Kowalski'), (19, 'Lefèvre'), (20, 'Björk'), (21, 'Weiß'),
        (22, 'Østergård'), (23, 'Šimková'), (24, 'Ibáñez')),
    kinds(i, name) AS (VALUES
        (0, 'GmbH'), (1, 'Ltd.'), (2, '& Söhne'), (3, 'S.A.'), (4, 'AB'), (5, 'Trading'), (6, 'Import/Export')),
    first_names(i, name) AS (VALUES
        (0, 'Anna'), (1, 'Jürgen'), (2, 'Zoë'), (3, 'José'), (4, 'François'), (5, 'Søren'), (6, 'Ewa'),
        (7, 'Ömer'), (8, 'Chloé'), (9, 'Dmitri'), (10, 'Ingrid')),
    cities(i, city, country) AS (VALUES
        (0, 'München', 'Deutschland'), (1, 'Zürich', 'Schweiz'), (2, 'København', 'Danmark'),
        (3, 'São Paulo', 'Brasil'), (4, 'Kraków', 'Polska'), (5, 'Αθήνα', 'Ελλάδα'), (6, 'Москва', 'Россия'),
        (7, '東京', '日本'), (8, 'London', 'United Kingdom'), (9, 'Málaga', 'España'), (10, 'İzmir', 'Türkiye'),
        (11, 'Reykjavík', 'Ísland'), (12, 'Montréal', 'Canada'))
INSERT INTO Customers (CustomerID, CompanyName, ContactName, City, Country, Phone, CreditLimit, CustomerSince)
SELECT n,
       s.name || ' ' || k.name || CASE WHEN n > 175 THEN ' ' || n ELSE '' END,
       CASE WHEN n % 9 = 0 THEN NULL ELSE f.name || ' ' || s.name END,
       c.city, c.country,
       CASE WHEN n % 7 = 0 THEN NULL ELSE '+' || (10 + n % 80) || ' ' || (100000 + (n * 7919) % 900000) END,
       CASE WHEN n % 11 = 0 THEN NULL ELSE ROUND(1000 + (n * 4813) % 99000 + (n % 100) / 100.0, 2) END,
       date('2005-01-01', '+' || ((n * 37) % 6500) || ' days')
FROM seq
JOIN surnames s ON s.i = n % 25
JOIN kinds k ON k.i = (n / 25) % 7
JOIN first_names f ON f.i = n % 11
JOIN cities c ON c.i = (n * 3) % 13;

-- 77 products in 7 categories; every ninth one is discontinued.
WITH RECURSIVE
    seq(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM seq WHERE n < 77),
    categories(i, name) AS (VALUES
        (0, 'Getränke'), (1, 'Gewürze'), (2, 'Süßwaren'), (3, 'Milchprodukte'), (4, 'Getreide'),
        (5, 'Fleisch'), (6, 'Meeresfrüchte')),
    items(i, name) AS (VALUES
        (0, 'Kaffee'), (1, 'Tee'), (2, 'Käse'), (3, 'Crème brûlée'), (4, 'Brötchen'), (5, 'Würstchen'),
        (6, 'Lachs'), (7, 'Pfeffer'), (8, 'Schokolade'), (9, 'Smørrebrød'), (10, 'Jamón'))
INSERT INTO Products (ProductID, ProductName, Category, UnitPrice, UnitsInStock, Discontinued)
SELECT n, i.name || ' Nr. ' || n, c.name,
       ROUND(2 + (n * 1237) % 9000 / 100.0, 2),
       CASE WHEN n % 13 = 0 THEN NULL ELSE (n * 31) % 200 END,
       CASE WHEN n % 9 = 0 THEN 1 ELSE 0 END
FROM seq
JOIN categories c ON c.i = n % 7
JOIN items i ON i.i = n % 11;

-- 100,000 orders from 2019 to 2024; a tenth not yet shipped.
WITH RECURSIVE seq(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM seq WHERE n < 100000)
INSERT INTO Orders (OrderID, CustomerID, OrderDate, ShippedDate, Freight, ShipCity, Remarks)
SELECT n,
       1 + (n * 7919) % 500,
       date('2019-01-01', '+' || (n * 2190 / 100000) || ' days'),
       CASE WHEN (n * 31) % 10 = 0 THEN NULL
            ELSE datetime(date('2019-01-01', '+' || (n * 2190 / 100000) || ' days'),
                          '+' || (1 + n % 9) || ' days', '+' || ((n * 4817) % 86400) || ' seconds') END,
       ROUND(((n * 104729) % 50000) / 100.0, 2),
       CASE (n * 13) % 5 WHEN 0 THEN 'München' WHEN 1 THEN 'Zürich' WHEN 2 THEN 'Kraków'
                         WHEN 3 THEN 'Αθήνα' ELSE 'London' END,
       CASE WHEN n % 97 = 0 THEN 'Bitte vor 10 Uhr liefern – Tür „Hof“'
            WHEN n % 101 = 0 THEN 'Fragile: verre/Glas'
            ELSE NULL END
FROM seq;

-- One to four lines per order, each a different product.
WITH RECURSIVE
    seq(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM seq WHERE n < 100000),
    lines(k) AS (VALUES (0), (1), (2), (3))
INSERT INTO "Order Details" (OrderID, ProductID, UnitPrice, Quantity, Discount)
SELECT n, p.ProductID, p.UnitPrice,
       1 + (n * 7 + k * 3) % 40,
       CASE (n + k) % 8 WHEN 0 THEN 0.05 WHEN 1 THEN 0.1 WHEN 2 THEN 0.25 ELSE 0 END
FROM seq
JOIN lines ON k <= (n * 2654435761) % 4
JOIN Products p ON p.ProductID = 1 + ((n * 40503) % 77 + k * 17) % 77;

COMMIT;
