#!/usr/bin/env python3
"""Makes data/orders.txt, the data of the main demo: 2,400 orders, the same on every run.

All names are made up. The file is UTF-16 with a byte order mark, one order per line, fields
separated by tabs, a line of column names first; money has a decimal point, dates are yyyy-mm-dd,
flags are 0 and 1.
"""

import datetime
import pathlib
import random

ORDERS = 2400
SEED = 20240229

FIRST = ["Åsa", "Bérénice", "Çelik", "Dörte", "Émile", "Fiona", "Grażyna", "Håkon", "İnci", "Jürgen", "Κώστας",
         "Łucja", "Małgorzata", "Núria", "Øystein", "Přemek", "Rosa", "Søren", "Tomás", "Umut", "Вера", "William",
         "Ξένια", "Yrsa", "Živa"]
LAST = ["Abendrot", "Brückner", "Castaño", "Dvořáček", "Ekström", "Fjellvåg", "Gökdemir", "Hrušková", "Îlien",
        "Jaśkowiak", "Kovačić", "Lörinc", "Møllerup", "Nuñoz", "Ōmori", "Papadákis", "Quéméneur", "Różański",
        "Sörbäck", "Țepeluș", "Ürgüplü", "Vāczy", "Wójtowska", "Ångbåt", "Žďárek"]
PLACES = {"North": ["Fjordvik", "Grünsund", "Høyberg", "Sjölunda"],
          "East": ["Białowiec", "Dębrowa", "Kővár", "Rožnovec"],
          "South": ["Agiópetra", "Montebèllo", "São Lírio", "Yeşilova"],
          "West": ["Bréval", "Kerloc'h", "Port Aven", "Zoetendam"]}
PRODUCTS = [("Anvil, small", 89.0), ("Brass kettle", 42.5), ("Crêpe pan", 27.9), ("Door knob", 6.75),
            ("Enamel jug", 18.2), ("Folding chair", 34.0), ("Garden gate", 210.0), ("Hand drill", 58.6),
            ("Ice axe", 74.25), ("Jam jar, dozen", 11.4), ("Ladder, 5 m", 129.0), ("Müsli bowl", 7.35),
            ("Oil lamp", 23.8), ("Pocket lens", 15.5), ("Rowing boat", 1890.0), ("Spirit level", 21.1)]
COLUMNS = ["Order", "Date", "Customer", "Region", "City", "Product", "Quantity", "Price", "Total", "Paid", "Rush",
           "Done"]


def order(number, rng):
    region = rng.choice(sorted(PLACES))
    product, price = rng.choice(PRODUCTS)
    quantity = rng.choice([1, 1, 2, 3, 5, 8, 12, 24])
    if rng.random() < 0.04:
        quantity = -quantity  # goods sent back
    price = round(price * rng.uniform(0.92, 1.08), 2)
    date = datetime.date(2023, 1, 2) + datetime.timedelta(days=rng.randrange(730))
    return [number, date.isoformat(), rng.choice(FIRST) + " " + rng.choice(LAST), region, rng.choice(PLACES[region]),
            product, quantity, "%.2f" % price, "%.2f" % (price * quantity), int(rng.random() < 0.8),
            int(rng.random() < 0.15), rng.randrange(0, 101, 5)]


def main():
    rng = random.Random(SEED)
    rows = [COLUMNS] + [order(10001 + i, rng) for i in range(ORDERS)]
    text = "".join("\t".join(map(str, row)) + "\r\n" for row in rows)
    target = pathlib.Path(__file__).parent / "data" / "orders.txt"
    target.parent.mkdir(exist_ok=True)
    target.write_bytes(b"\xff\xfe" + text.encode("utf-16-le"))


if __name__ == "__main__":
    main()
