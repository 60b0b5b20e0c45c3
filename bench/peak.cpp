// broomtide-bench-peak PROGRAM ARGUMENT…: runs a program without its output and prints the most
// memory that it used, in kilobytes.
//
// A child's peak counts from before it became another program, so who starts it must be small:
// this needs no library but C's.

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

int main(int count, char** words) {
  if (count < 2) {
    std::fputs("usage: broomtide-bench-peak PROGRAM ARGUMENT...\n", stderr);
    return 2;
  }
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int error = posix_spawnp(&child, words[1], &actions, nullptr, words + 1, environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) {
    std::fprintf(stderr, "broomtide-bench-peak: %s: %s\n", words[1], std::strerror(error));
    return EXIT_FAILURE;
  }
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child || status != 0) {
    std::fprintf(stderr, "broomtide-bench-peak: %s failed with wait status %d\n", words[1], status);
    return EXIT_FAILURE;
  }
  std::printf("%ld\n", usage.ru_maxrss);
  return EXIT_SUCCESS;
}
