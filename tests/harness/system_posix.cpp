// SPDX-License-Identifier: MIT
#include "harness/system.h"

#include <signal.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <initializer_list>

namespace harness {
namespace {

void require(bool ok, const char* what)
{
    if (ok) return;
    std::perror(what);
    std::abort();
}

void (*reporter)(const void* address) = nullptr;

void handle(int number, siginfo_t* details, void*)
{
    reporter(details->si_addr);
    signal(number, SIG_DFL);
    raise(number);
}

} // namespace

size_t page_size() { return static_cast<size_t>(sysconf(_SC_PAGESIZE)); }

uint8_t* reserve_pages(size_t bytes)
{
    void* mapping = mmap(nullptr, bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    require(mapping != MAP_FAILED, "mmap");
    return static_cast<uint8_t*>(mapping);
}

void open_pages(uint8_t* at, size_t bytes) { require(mprotect(at, bytes, PROT_READ | PROT_WRITE) == 0, "mprotect"); }

void release_pages(uint8_t* at, size_t bytes) { munmap(at, bytes); }

void report_faults(void (*report)(const void* address))
{
    static char stack[1 << 16];
    reporter = report;
    stack_t alternative = {};
    alternative.ss_sp = stack;
    alternative.ss_size = sizeof stack;
    sigaltstack(&alternative, nullptr);
    struct sigaction action = {};
    action.sa_sigaction = handle;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK | SA_NODEFER;
    for (const int number : {SIGSEGV, SIGBUS, SIGILL}) sigaction(number, &action, nullptr);
}

} // namespace harness
