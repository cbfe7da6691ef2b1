// SPDX-License-Identifier: MIT
// The entry point of the DLL. There is nothing to set up for a process or a thread and nothing to give back: success,
// whatever the reason. It is declared here by hand, since the platform's header would be needed for nothing else.

extern "C" int __stdcall DllMain(void*, unsigned long, void*) { return 1; }
