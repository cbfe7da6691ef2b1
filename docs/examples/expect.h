/* SPDX-License-Identifier: MIT */
/* Prints a result of an example, and ends the example if the result is not the expected one. */
#ifndef EXPECT_H
#define EXPECT_H
#include <stdio.h>
#include <stdlib.h>

static void expect(const char* what, long made, long expected)
{
    printf("%s: %ld\n", what, made);
    if (made != expected) {
        printf("expected %ld\n", expected);
        exit(EXIT_FAILURE);
    }
}
#endif
