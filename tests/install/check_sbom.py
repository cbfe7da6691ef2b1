#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""check_sbom.py DOCUMENT PREFIX SOURCES: the bill of materials is complete and true.

It has the fields that SPDX 2.3 demands, describes the files below PREFIX and SOURCES by their real checksums, and names
neither this machine nor a folder of it.
"""
import hashlib
import json
import os
import re
import socket
import sys
from pathlib import Path

FIELDS = {
    "document": ["spdxVersion", "dataLicense", "SPDXID", "name", "documentNamespace", "creationInfo", "packages",
                 "files", "relationships"],
    "package": ["SPDXID", "name", "versionInfo", "downloadLocation", "packageVerificationCode", "licenseConcluded",
                "licenseDeclared", "licenseInfoFromFiles", "copyrightText"],
    "file": ["SPDXID", "fileName", "checksums", "licenseConcluded", "licenseInfoInFiles", "copyrightText"],
    "relationship": ["spdxElementId", "relationshipType", "relatedSpdxElement"],
}


def demand(condition, complaint):
    if not condition:
        sys.exit(f"check_sbom.py: {complaint}")


def demand_fields(kind, thing):
    for field in FIELDS[kind]:
        demand(field in thing, f"a {kind} has no {field}: {thing.get('SPDXID')}")


def check_document(document):
    demand_fields("document", document)
    demand(document["spdxVersion"] == "SPDX-2.3" and document["dataLicense"] == "CC0-1.0", "wrong version or licence")
    demand(document["SPDXID"] == "SPDXRef-DOCUMENT", "the document has a wrong identifier")
    demand(re.fullmatch(r"https://[^#\s]+-[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}", document["documentNamespace"]),
           "the name space is no address")
    created = document["creationInfo"]["created"]
    demand(re.fullmatch(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ", created), f"no time: {created}")
    for creator in document["creationInfo"]["creators"]:
        demand(re.match(r"(Tool|Organization|Person): \S", creator), f"no creator: {creator}")


def check_file(described, folder):
    demand_fields("file", described)
    content = (Path(folder) / described["fileName"]).read_bytes()
    sums = {checksum["algorithm"]: checksum["checksumValue"] for checksum in described["checksums"]}
    demand(sums == {"SHA1": hashlib.sha1(content).hexdigest(), "SHA256": hashlib.sha256(content).hexdigest()},
           f"{described['fileName']} has other checksums")
    return sums["SHA1"]


def check_package(package, files, relationships, folder):
    demand_fields("package", package)
    contained = [relationship["relatedSpdxElement"] for relationship in relationships
                 if relationship["relationshipType"] == "CONTAINS"
                 and relationship["spdxElementId"] == package["SPDXID"]]
    demand(contained, f"{package['name']} contains nothing")
    sums = sorted(check_file(files[identifier], folder) for identifier in contained)
    demand(package["packageVerificationCode"]["packageVerificationCodeValue"]
           == hashlib.sha1("".join(sums).encode()).hexdigest(), f"{package['name']} has another verification code")
    print(f"{package['name']} {package['versionInfo']}: {len(contained)} files")
    return contained


def main(name, prefix, sources):
    text = Path(name).read_text()
    for private in (socket.gethostname(), os.getcwd(), str(Path.home())):
        demand(private not in text, f"the document names {private}")
    document = json.loads(text)
    check_document(document)
    files = {described["SPDXID"]: described for described in document["files"]}
    packages = {package["name"]: package for package in document["packages"]}
    relationships = document["relationships"]
    identifiers = {"SPDXRef-DOCUMENT", *files, *(package["SPDXID"] for package in packages.values())}
    demand(len(identifiers) == 1 + len(document["files"]) + len(packages), "identifiers are not unique")
    for relationship in relationships:
        demand_fields("relationship", relationship)
        demand({relationship["spdxElementId"], relationship["relatedSpdxElement"]} <= identifiers,
               f"between unknown elements: {relationship}")
    contained = check_package(packages["vsurf"], files, relationships, prefix)
    contained += check_package(packages["vsurf-source"], files, relationships, sources)
    demand(sorted(contained) == sorted(files), "files of no package, or of two")
    kinds = {relationship["relationshipType"] for relationship in relationships}
    demand(kinds == {"DESCRIBES", "CONTAINS", "GENERATED_FROM"}, f"relationships: {kinds}")


if __name__ == "__main__":
    main(*sys.argv[1:])
