// qrvmat: look into material files, banks and run files, evaluate, check, report and plot a
// material from the command line. Exit codes: 0 success, 1 a failed operation, 2 a usage error.
#include "common.h"

#include <iostream>

int main(int argc, char** argv) {
    CLI::App app{"qrvmat: material files, banks and run files of quorvalib"};
    app.name("qrvmat");
    app.require_subcommand(1);
    qrvmat::addInfo(app);
    qrvmat::addDump(app);
    qrvmat::addCheck(app);
    qrvmat::addReport(app);
    qrvmat::addEval(app);
    qrvmat::addPlot(app);
    qrvmat::addDefault(app);
    qrvmat::addConvert(app);
    qrvmat::addBank(app);
    qrvmat::addMetals(app);
    qrvmat::addRun(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& help) {
        return app.exit(help);
    } catch (const CLI::CallForAllHelp& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        app.exit(error);
        return 2;
    } catch (const qrvmat::Failure& failure) {
        std::cout.flush();
        std::cerr << "qrvmat: ";
        if (!failure.subject().empty()) std::cerr << failure.subject() << ": ";
        std::cerr << failure.what() << "\n";
        return 1;
    }
    return 0;
}
