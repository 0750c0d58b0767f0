// Keeps copies of unsaved changes as the editor does, for tools/trial/trial to disturb:
//
//   trial-recovery keep FOLDER NAME COUNT   keeps so many versions, "NAME.1" and so on; a line "kept" for each on
//                                           standard error once it is kept
//   trial-recovery left FOLDER              prints the names of the versions that the next start offers, and discards
//   them

#include "editor/Recovery.h"

#include <cstdio>

namespace {

int Keep(const QString& folder, const QString& name, int count) {
    const SystemClock clock;
    Recovery recovery(folder, clock);
    TestDocument test;
    recovery.Begin(test);
    for (int version = 1; version <= count; ++version) {
        test.TestTitle = name + u'.' + QString::number(version);
        if (const Result kept = recovery.Keep(test); !kept) {
            std::fprintf(stderr, "%s\n", qPrintable(kept.Message()));
            return 1;
        }
        std::fputs("kept\n", stderr);
    }
    return 0;
}

void PrintLeft(const QString& folder) {
    const SystemClock clock;
    Recovery recovery(folder, clock);
    while (const auto left = recovery.Left()) {
        std::printf("%s\n", qPrintable(left->Test.TestTitle));
        recovery.Discard(*left);
    }
}

} // namespace

int main(int count, char** words) {
    const auto word = [&](int i) { return i < count ? QString::fromLocal8Bit(words[i]) : QString(); };
    if (word(1) == QStringLiteral("keep"))
        return Keep(word(2), word(3), word(4).toInt());
    PrintLeft(word(2));
    return 0;
}
