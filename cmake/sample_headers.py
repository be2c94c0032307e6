#!/usr/bin/env python3
"""Writes Header.mif and Header.prj for the zones of the Map Grid of Australia, a folder for each.

Usage: sample_headers.py FOLDER

The parameters are those that the Intergovernmental Committee on Surveying and Mapping publishes for
MGA94 and MGA2020: a transverse Mercator projection of the GRS 80 ellipsoid with a central meridian
every 6 degrees, a scale of 0.9996 there, a false easting of 500 km and a false northing of 10,000 km.
"""

import pathlib
import sys

ZONES = range(49, 57)
# Name for people, number of the datum in MapInfo, names in the .prj: projection, system, datum.
DATUMS = [("GDA94", 116, "GDA_1994", "GCS_GDA_1994", "D_GDA_1994"),
          ("GDA2020", 1028, "GDA2020", "GDA2020", "GDA2020")]


def meridian(zone):
    return 6 * zone - 183


def mif_header(zone, mapinfo_datum):
    """A layer without objects, as far as its CoordSys line and what must follow."""
    return "\r\n".join([
        "Version 300", 'Charset "WindowsLatin1"', 'Delimiter ","',
        f'CoordSys Earth Projection 8, {mapinfo_datum}, "m", {meridian(zone)}, 0, 0.9996, 500000, 10000000',
        "Columns 1", "  Name Char(10)", "Data", ""])


def prj_text(zone, projection, system, datum):
    """Well-known text on one line, for only the line with PROJCS is taken over into a layer."""
    parameters = {"False_Easting": 500000, "False_Northing": 10000000,
                  "Central_Meridian": meridian(zone), "Scale_Factor": 0.9996,
                  "Latitude_Of_Origin": 0}
    return (f'PROJCS["{projection}_MGA_Zone_{zone}",GEOGCS["{system}",DATUM["{datum}",'
            'SPHEROID["GRS_1980",6378137.0,298.257222101]],PRIMEM["Greenwich",0.0],'
            'UNIT["Degree",0.0174532925199433]],PROJECTION["Transverse_Mercator"],'
            + "".join(f'PARAMETER["{name}",{float(value)}],' for name, value in parameters.items())
            + 'UNIT["Meter",1.0]]\r\n')


def main():
    top = pathlib.Path(sys.argv[1])
    for name, mapinfo_datum, projection, system, datum in DATUMS:
        for zone in ZONES:
            folder = top / f"{name} MGA zone {zone}"
            folder.mkdir(parents=True, exist_ok=True)
            (folder / "Header.mif").write_text(mif_header(zone, mapinfo_datum), newline="")
            (folder / "Header.prj").write_text(prj_text(zone, projection, system, datum), newline="")


if __name__ == "__main__":
    main()
