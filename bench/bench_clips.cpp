// Fills a history, or a file for the programs that it is compared to, with the clips of benchmarks.
//
//   bench_clips even|real COUNT --store FILE   into a store that Quillmarsh has made
//   bench_clips even|real COUNT --lines FILE   a line each, the newest first

#include "ClipTexts.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>

namespace {

void fillStore(const ClipTexts &texts, unsigned count, const char *file)
{
    SQLite::Database database(file, SQLite::OPEN_READWRITE, 5000);
    SQLite::Transaction transaction(database);
    SQLite::Statement insertion(
        database, "INSERT INTO ClipItem (strValue, applicationName, createDate) VALUES (?, ?, ?)");
    const double oldest = static_cast<double>(std::time(nullptr)) - 2.0 * count;
    for (unsigned i = 0; i < count; ++i) {
        insertion.bind(1, texts.text(i));
        insertion.bind(2, "Bench");
        insertion.bind(3, oldest + i);
        insertion.exec();
        insertion.reset();
    }
    transaction.commit();
}

void writeLines(const ClipTexts &texts, unsigned count, const char *file)
{
    std::ofstream lines(file);
    for (unsigned i = count; i-- > 0;) {
        std::string text = texts.text(i);
        std::replace(text.begin(), text.end(), '\n', ' ');
        lines << text << '\n';
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 5) {
        std::fputs("usage: bench_clips even|real COUNT --store|--lines FILE\n", stderr);
        return 2;
    }
    const bool isReal = argv[1] == std::string("real");
    const ClipTexts texts(isReal ? ClipTexts::Sizes::Real : ClipTexts::Sizes::Even);
    const auto count = static_cast<unsigned>(std::atoi(argv[2]));
    try {
        (argv[3] == std::string("--lines") ? writeLines : fillStore)(texts, count, argv[4]);
    } catch (const std::exception &problem) {
        std::fprintf(stderr, "bench_clips: %s\n", problem.what());
        return 1;
    }
    return 0;
}
