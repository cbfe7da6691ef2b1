/* SPDX-License-Identifier: MIT */
/* Prints what an example made, and ends it where that is not what the example tells. */
#ifndef EXPECT_H
#define EXPECT_H
#include <stdio.h>
#include <stdlib.h>

static void expect(const char* what, long made, long told)
{
    printf("%s: %ld\n", what, made);
    if (made != told) {
        printf("expected %ld\n", told);
        exit(EXIT_FAILURE);
    }
}
#endif
