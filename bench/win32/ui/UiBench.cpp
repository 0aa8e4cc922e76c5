// bench_ui [FILE...]
//
// The windows against bare controls of the system, both in this run: prints the least time of several rounds
// of each. The months are those of the event files named.
#include "Benches.h"

int main(int count, char** arguments) {
    kaz::MeasureLists();
    kaz::MeasureReminders();
    kaz::MeasureMonth({arguments + 1, arguments + count});
    return 0;
}
