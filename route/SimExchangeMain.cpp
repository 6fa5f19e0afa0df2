// basket-simexchange: the simulated exchange as its own program, for pointing FIX tools at it.
//   basket-simexchange SETTINGS [--fill-delay MS] [--fill-parts N] [--fill-share X]
//                      [--journal FILE] [--instrument EXCHANGE,CODE,QUOTE[,LOT]]...
// Without --instrument every code is listed and fills at its limit price.

#include "CSimulatedExchange.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <unistd.h>

namespace {
volatile std::sig_atomic_t g_stop = 0;
void onSignal(int)
{
    g_stop = 1;
}
} // namespace

int main(int argc, char **argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s SETTINGS [--fill-delay MS] [--fill-parts N] [--fill-share X] "
                             "[--journal FILE] [--instrument EXCHANGE,CODE,QUOTE[,LOT]]...\n", argv[0]);
        return 2;
    }
    TC::CSimulatedExchange::COptions options;
    std::vector<std::string> instruments;
    for (int i = 2; i + 1 < argc; i += 2) {
        const std::string key = argv[i];
        const std::string value = argv[i + 1];
        if (key == "--fill-delay")
            options.m_fillDelayMs = std::atoi(value.c_str());
        else if (key == "--fill-parts")
            options.m_fillParts = std::atoi(value.c_str());
        else if (key == "--fill-share")
            options.m_fillShare = std::atof(value.c_str());
        else if (key == "--journal")
            options.m_journalPath = value;
        else if (key == "--instrument")
            instruments.push_back(value);
        else {
            std::fprintf(stderr, "unknown option %s\n", key.c_str());
            return 2;
        }
    }
    TC::CSimulatedExchange exchange(argv[1], options);
    for (const std::string &text : instruments) {
        char exchangeCode[32] = {};
        char code[32] = {};
        TC::CSimulatedExchange::CInstrument instrument;
        if (std::sscanf(text.c_str(), "%31[^,],%31[^,],%lf,%lf", exchangeCode, code, &instrument.m_quote,
                        &instrument.m_lot) < 3) {
            std::fprintf(stderr, "bad instrument %s\n", text.c_str());
            return 2;
        }
        exchange.setInstrument(exchangeCode, code, instrument);
    }
    std::string error;
    if (!exchange.start(&error)) {
        std::fprintf(stderr, "cannot start: %s\n", error.c_str());
        return 1;
    }
    std::signal(SIGINT, onSignal);
    std::signal(SIGTERM, onSignal);
    while (!g_stop)
        ::usleep(100 * 1000);
    exchange.stop();
    std::printf("booked %zu orders\n", exchange.bookedCount());
    return 0;
}
