#include "gpkg/help.h"

namespace vantelgis::gpkg {

const std::string_view kHelp =
    R"(Brings a 12d archive into a GeoPackage, with names, models and colours, and back.

  vantelgis-gpkg site.12da                         makes site.gpkg
  vantelgis-gpkg site.gpkg                         makes site.12da
  vantelgis-gpkg a.12da b.12da --out both.gpkg     several archives in one package

Usage: vantelgis-gpkg [OPTIONS] FILE...

Both ways
  -o, --out FILE        name of the result
      --encoding NAME   of the archive: auto, utf-8, windows-1252, utf-16le, utf-16be
                        (read: auto; written: utf-8)
  -q, --quiet           say nothing but errors
  -h, --help            this text
      --version         the version

Archive to package
      --append          keep the package, add the archive or put it in place of its old strings
      --replace         drop the package even if it holds layers of other origin
      --crs FILE.prj    coordinate system (else NAME.prj, Header.prj, Projection.prj beside it)
      --vertices        a layer of all vertices too
      --hip             hipdata blocks too
      --null-z NUMBER   stands for a missing elevation in the geometry (else not a number)
      --check           have SQLite check the whole package before it takes its place

Package to archive
      --layer NAME      this layer alone; may be repeated (else every line and polygon layer)
      --field A=NAME    the field NAME holds the attribute A: name, model, colour, style,
                        breakline, chainage, z, type; may be repeated
      --where SQL       features for which this holds alone, such as "colour = 'red'"
      --sort FIELD      order within a model (else the number of the feature)
      --model NAME      model of features that name none (else the layer's name)
      --prj             write the coordinate system beside the archive, as a .prj
      --degrees         take longitudes and latitudes as they are

Status: 0 the result is whole, 1 there is none (the old file stays), 2 wrong usage.
)";

}  // namespace vantelgis::gpkg
