#include <cstdlib>

// What a program says before abort() when nobody takes an exception. The compiler's own words name its kind, and bring
// along 46 KB that decode such names, for a standard error that no till shows.
namespace __gnu_cxx {

void __verbose_terminate_handler();

void __verbose_terminate_handler() {
  std::abort();
}

}  // namespace __gnu_cxx
