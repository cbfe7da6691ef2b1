# SPDX-License-Identifier: MIT
# cmake -D input=FILE -D output=FILE -P write_sbom.cmake: the input sets name, version, built (folder and file, in
# turn), source_folder and sources.
# Time: SOURCE_DATE_EPOCH, if set, else now. The same files and time give the same document.
cmake_minimum_required(VERSION 3.21)
include(${input})
set(files)
set(file_count 0)
set(relationships)
set(all_checksums "${name} ${version}")

# json_list(<result> <item>...): items that are JSON already.
function(json_list result)
    list(JOIN ARGN "," items)
    set(${result} "[${items}]" PARENT_SCOPE)
endfunction()

macro(add_relationship from type to)
    list(APPEND relationships
        "{\"spdxElementId\":\"${from}\",\"relationshipType\":\"${type}\",\"relatedSpdxElement\":\"${to}\"}")
endmacro()

# add_file(<package> <kind> <name in the document> <path>)
macro(add_file package kind file_name path)
    math(EXPR file_count "${file_count} + 1")
    file(SHA1 "${path}" sha1)
    file(SHA256 "${path}" sha256)
    list(APPEND files "{\"SPDXID\":\"SPDXRef-file-${file_count}\",\"fileName\":\"./${file_name}\",\
\"fileTypes\":[\"${kind}\"],\"checksums\":[{\"algorithm\":\"SHA1\",\"checksumValue\":\"${sha1}\"},\
{\"algorithm\":\"SHA256\",\"checksumValue\":\"${sha256}\"}],\"licenseConcluded\":\"MIT\",\
\"licenseInfoInFiles\":[\"MIT\"],\"copyrightText\":\"The vsurf authors\"}")
    list(APPEND sha1_of_${package} ${sha1})
    string(APPEND all_checksums " ${sha256}")
    add_relationship(SPDXRef-${package} CONTAINS SPDXRef-file-${file_count})
endmacro()

# A package's verification code is the SHA-1 of the sorted SHA-1 sums of its files, one behind the other.
macro(add_package package package_name purpose)
    list(SORT sha1_of_${package})
    list(JOIN sha1_of_${package} "" sums)
    string(SHA1 verification_code "${sums}")
    list(APPEND packages "{\"SPDXID\":\"SPDXRef-${package}\",\"name\":\"${package_name}\",\
\"versionInfo\":\"${version}\",\"supplier\":\"Organization: The vsurf authors\",\"downloadLocation\":\"NOASSERTION\",\
\"primaryPackagePurpose\":\"${purpose}\",\"filesAnalyzed\":true,\
\"packageVerificationCode\":{\"packageVerificationCodeValue\":\"${verification_code}\"},\
\"licenseConcluded\":\"MIT\",\"licenseDeclared\":\"MIT\",\"licenseInfoFromFiles\":[\"MIT\"],\
\"copyrightText\":\"The vsurf authors\"}")
endmacro()

while(built)
    list(POP_FRONT built folder path)
    get_filename_component(file_name ${path} NAME)
    if(file_name MATCHES "\\.h$")
        add_file(library SOURCE ${folder}/${file_name} ${path})
    else()
        add_file(library BINARY ${folder}/${file_name} ${path})
    endif()
endwhile()
foreach(source IN LISTS sources)
    add_file(source SOURCE ${source} ${source_folder}/${source})
endforeach()
add_package(library ${name} LIBRARY)
add_package(source ${name}-source SOURCE)
add_relationship(SPDXRef-DOCUMENT DESCRIBES SPDXRef-library)
add_relationship(SPDXRef-library GENERATED_FROM SPDXRef-source)

string(TIMESTAMP created "%Y-%m-%dT%H:%M:%SZ" UTC)
set(documents https://spdx.org/spdxdocs)        # where the standard lets those live who have no address of their own
set(url_namespace 6ba7b811-9dad-11d1-80b4-00c04fd430c8)
string(UUID identity NAMESPACE ${url_namespace} NAME "${documents} ${created} ${all_checksums}" TYPE SHA1)

json_list(packages ${packages})
json_list(files ${files})
json_list(relationships ${relationships})
# string(JSON) parses the text, so that no malformed document is ever written, and indents it.
string(JSON document SET "{
    \"spdxVersion\": \"SPDX-2.3\", \"dataLicense\": \"CC0-1.0\", \"SPDXID\": \"SPDXRef-DOCUMENT\",
    \"name\": \"${name}-${version}\", \"documentNamespace\": \"${documents}/${name}-${version}-${identity}\",
    \"creationInfo\": {\"created\": \"${created}\",
        \"creators\": [\"Organization: The vsurf authors\", \"Tool: cmake-${CMAKE_VERSION}\"]},
    \"packages\": ${packages}, \"files\": ${files}}" relationships "${relationships}")
file(WRITE ${output} "${document}\n")
