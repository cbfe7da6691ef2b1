// SPDX-License-Identifier: MIT
#include "harness/system.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace harness {
namespace {

void require(bool ok, const char* what)
{
    if (ok) return;
    std::fprintf(stderr, "%s: error %lu\n", what, GetLastError());
    std::abort();
}

void (*reporter)(const void* address) = nullptr;

// An access violation has the address as its second piece of information; other faults have only the instruction's.
LONG WINAPI handle(EXCEPTION_POINTERS* details)
{
    const EXCEPTION_RECORD& fault = *details->ExceptionRecord;
    reporter(fault.ExceptionCode == EXCEPTION_ACCESS_VIOLATION
                 ? reinterpret_cast<const void*>(fault.ExceptionInformation[1])
                 : fault.ExceptionAddress);
    return EXCEPTION_EXECUTE_HANDLER;
}

} // namespace

size_t page_size()
{
    SYSTEM_INFO info;
    GetSystemInfo(&info);
    return info.dwPageSize;
}

uint8_t* reserve_pages(size_t bytes)
{
    void* reserved = VirtualAlloc(nullptr, bytes, MEM_RESERVE, PAGE_NOACCESS);
    require(reserved != nullptr, "VirtualAlloc, reserving");
    return static_cast<uint8_t*>(reserved);
}

void open_pages(uint8_t* at, size_t bytes)
{
    require(VirtualAlloc(at, bytes, MEM_COMMIT, PAGE_READWRITE) != nullptr, "VirtualAlloc, committing");
}

void release_pages(uint8_t* at, size_t) { VirtualFree(at, 0, MEM_RELEASE); }

void report_faults(void (*report)(const void* address))
{
    reporter = report;
    SetUnhandledExceptionFilter(handle);
}

} // namespace harness
