// vorna-content: the build step that makes the content of the installation folder.
//
// Exit status 0 when it ran, 1 when it could not, 2 for wrong usage; then one line on standard
// error says what is wrong.

#include "content/installation.h"
#include "content/pictures/picture_laying.h"
#include "content/proposal_table.h"
#include "content/reference_builder.h"
#include "content/sample_client.h"
#include "core/reference_database.h"
#include "platform/failure.h"

#include <CLI/CLI.hpp>
#include <QGuiApplication>

#include <functional>
#include <iostream>
#include <string>

namespace {

constexpr int couldNotRun = 1;
constexpr int wrongUsage = 2;

int run(const std::function<void()>& command) {
    try {
        command();
        return 0;
    } catch (const vorna::Failure& failure) {
        std::cerr << "vorna-content: " << failure.what() << '\n';
        return couldNotRun;
    }
}

struct ProposalPage {
    vorna::fs::path sources;
    vorna::fs::path output;
};

// In English, out of the database of the TCM mode; it is made beside the page and goes again.
void writeProposals(const ProposalPage& page) {
    vorna::fs::path file = page.output;
    file += ".mdb";
    const auto remove = [&] {
        std::error_code error;
        vorna::fs::remove(file, error);
    };
    remove();
    vorna::makeReferenceDatabase({.tables = page.sources / "tables", .mode = "tcm"}, file);
    {
        vorna::Database reference(file, vorna::referencePassword);
        vorna::nastavJazyk(reference, vorna::languageEnglish);
        vorna::writeFileAtomically(page.output, vorna::proposalTable(reference));
    }
    remove();
}

// The fonts of the pictures come from Qt, which needs no display for them.
void drawPictures(const vorna::PicturePlan& plan, char* program) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int argumentCount = 1;
    const QGuiApplication application(argumentCount, &program);
    vorna::layPictures(plan);
}

CLI::App* addPictures(CLI::App& app, vorna::PicturePlan& pictures) {
    CLI::App* const draw = app.add_subcommand("pictures", "draw an installation's pictures");
    draw->add_option("--sources", pictures.sources, "the folder of the sources")->required();
    draw->add_option("--into", pictures.into, "the installation folder")->required();
    draw->add_option("--list", pictures.list,
                     "keep the names laid down here, and remove what an earlier run laid down "
                     "and this one does not");
    return draw;
}

} // namespace

int main(int argumentCount, char** arguments) {
    CLI::App app("Makes the content of VORNA's installation folder from its sources.",
                 "vorna-content");
    app.require_subcommand(1);

    vorna::InstallationPlan installation;
    CLI::App* const lay = app.add_subcommand("installation", "lay down an installation folder");
    lay->add_option("--sources", installation.sources, "the folder of the sources")->required();
    lay->add_option("--into", installation.into, "the installation folder")->required();
    lay->add_option("--list", installation.list,
                    "keep the names laid down here, and remove what an earlier run laid down "
                    "and this one does not");
    lay->add_flag("--as-new", installation.asNew,
                  "lay down again what a first start has moved aside");

    vorna::PicturePlan pictures;
    CLI::App* const draw = addPictures(app, pictures);

    vorna::SampleClientPlan sample;
    CLI::App* const add = app.add_subcommand("sample-client", "add the sample client");
    add->add_option("--sources", sample.sources, "the folder of the sources")->required();
    add->add_option("--data-root", sample.dataRoot, "the data root, with its client database")
        ->required();

    ProposalPage proposals;
    CLI::App* const page = app.add_subcommand("proposals", "write the page of all proposals");
    page->add_option("--sources", proposals.sources, "the folder of the sources")->required();
    page->add_option("--output", proposals.output, "the page, in Markdown")->required();

    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::CallForHelp& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        std::cerr << "vorna-content: " << error.what() << '\n';
        return wrongUsage;
    }
    return run([&] {
        if (lay->parsed())
            vorna::layInstallation(installation);
        else if (draw->parsed())
            drawPictures(pictures, arguments[0]);
        else if (page->parsed())
            writeProposals(proposals);
        else
            vorna::addSampleClient(sample);
    });
}
