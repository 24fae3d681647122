#!/usr/bin/env bash
# notices.sh HOST FOLDER: every library that the host links stands in the notices and in the bill of
# materials, each with the text of a licence. FOLDER is made anew.
set -euo pipefail
rm -rf "$2"
"$(dirname "${BASH_SOURCE[0]}")/../../scripts/notices" "$2" linux "$1"
python3 - "$2" $(readelf --wide --dynamic "$1" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p') <<'END'
import json, pathlib, sys
folder, libraries = pathlib.Path(sys.argv[1]), sys.argv[2:]
head = (folder / "THIRD-PARTY-NOTICES").read_text().split("=" * 100)[0]
bill = json.loads(next(folder.glob("*.spdx.json")).read_text())
texts = {each["licenseId"]: each["extractedText"] for each in bill["hasExtractedLicensingInfos"]}
linked = {each["relatedSpdxElement"] for each in bill["relationships"] if "LINK" in each["relationshipType"]}
assert bill["spdxVersion"] == "SPDX-2.3" and libraries
for library in libraries:
    assert library in head, library
    package = [each for each in bill["packages"] if library in each.get("comment", "").split(", ")]
    assert len(package) == 1 and package[0]["SPDXID"] in linked, library
    assert len(texts[package[0]["licenseDeclared"]]) > 200, library
END
