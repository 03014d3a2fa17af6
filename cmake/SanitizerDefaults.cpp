// Part of every program of the sanitize preset: what the sanitizers are told, so that each
// program finds the same whoever starts it. ASAN_OPTIONS and the like still override.
// The sanitizers' libraries look these functions up, so they must not be hidden.

#define SANITIZER_DEFAULT extern "C" __attribute__((visibility("default"), used)) const char*

SANITIZER_DEFAULT __asan_default_options() {
  // Coin frees the bitmaps of SoMarkerSet, which it makes with new[], by plain delete
  // (SoDB::finish). The checker cannot be told to overlook one library in this.
  // And the checker guesses where a library's thread-local memory lies from what glibc writes in
  // front of it; where it guesses wrong, its leak check crashes (Tracer caught signal 11). What
  // that memory points to is found without the guess, for it is ordinary memory.
  return "alloc_dealloc_mismatch=0:detect_leaks=1:detect_stack_use_after_return=1:"
         "intercept_tls_get_addr=0";
}

// A program's standard error is its user's: what was overlooked is not listed there.
SANITIZER_DEFAULT __lsan_default_options() { return "print_suppressions=0"; }

SANITIZER_DEFAULT __ubsan_default_options() { return "print_stacktrace=1"; }

// Leaks of other libraries, one line each with its reason. Nothing of this project belongs
// here.
SANITIZER_DEFAULT __lsan_default_suppressions() {
  return "leak:cc_dl_open\n"          // Coin keeps the record of a library that it loaded
         "leak:cc_glglue_instance\n"  // and forgets that of a context that has ended,
         // an element's default when it is started a second time,
         "leak:SoCoordinateElement::initClass\n"
         // and its clock in a program that never calls SoDB::finish.
         "leak:SoSFTime::createInstance\n"
         "leak:swrast_dri.so\n"      // Mesa's renderer keeps some of what it compiled
         "leak:libdbus-1.so\n"       // Qt keeps its connection to the desktop
         "leak:libfontconfig.so\n";  // and the fonts that it found
}

// Libraries stay loaded: what an OpenGL driver keeps for the life of the program would else
// be a leak once the driver is gone, and could not be told from one of ours.
extern "C" __attribute__((visibility("default"), used)) int dlclose(void* /*library*/) { return 0; }
