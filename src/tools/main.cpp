// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// qor: shows document files, exports them, and makes them of CSV files. The command line only; each command has a
// folder of its own.
#include "tools/console/Text.h"
#include "tools/documents/Names.h"
#include "tools/dump/DumpCommand.h"
#include "tools/export/ExportCommand.h"
#include "tools/import/ImportCommand.h"
#include "tools/info/InfoCommand.h"

#include <CLI/CLI.hpp>

#include <new>

namespace {

using namespace qor::tool;

constexpr const char* ExitCodes =
    "Exit codes: 0 done; 1 a file could not be read or written, or is damaged; 2 wrong usage.";

// A character by itself, or one of the names that are easier to type.
char DelimiterNamed(const std::string& name)
{
    if (name == "tab" || name == "\\t") return '\t';
    if (name == "comma") return ',';
    if (name == "semicolon") return ';';
    const bool usable = name.size() == 1 && static_cast<unsigned char>(name[0]) < 0x80 &&
                        std::string_view("\"\r\n+-.0123456789").find(name[0]) == std::string_view::npos;
    if (!usable) throw UsageError(fmt::format("--delimiter {}: one character is expected, or tab", name));
    return name[0];
}

float MissingNamed(const std::string& text)
{
    try {
        std::size_t used = 0;
        const float value = std::stof(text, &used);
        if (used == text.size()) return value;
    } catch (const std::exception&) { // not a number, or beyond the range: refused below
    }
    throw UsageError(fmt::format("--missing {}: a number is expected, or nan", text));
}

CLI::Option* AddFormat(CLI::App* command, std::string& format, std::vector<std::string> choices)
{
    return command->add_option("--format", format, "How the output looks")
        ->check(CLI::IsMember(std::move(choices)))
        ->capture_default_str();
}

CLI::App* AddInfo(CLI::App& app, InfoOptions& options)
{
    CLI::App* command = app.add_subcommand("info", "Show what stands in document files, without their values");
    command->add_option("FILE", options.files, "Data Block, Structure and Shape Table files")->required();
    command->add_flag("--stats", options.statistics, "Read all values too: extremes of every trace and shape");
    AddFormat(command, options.format, {"table", "json"});
    return command;
}

CLI::App* AddDump(CLI::App& app, DumpOptions& options)
{
    CLI::App* command = app.add_subcommand("dump", "Write out all values of a document file");
    command->add_option("FILE", options.file, "Data Block, Structure or Shape Table file")->required();
    const auto numbers = [command](const char* name, std::vector<std::int32_t>& values, const char* help) {
        command->add_option(name, values, help)->type_name("N")->allow_extra_args(false);
    };
    numbers("--trace", options.traces, "Of a Data Block only this trace, by number; may be repeated");
    numbers("--shape", options.shapes, "Of a Shape Table only this shape, by number; may be repeated");
    command->add_option("--elements", options.elements, "Of a Structure only these elements; may be repeated")
        ->check(CLI::IsMember(ElementKindNames()))
        ->allow_extra_args(false);
    AddFormat(command, options.format, {"table", "csv", "json"});
    return command;
}

CLI::App* AddExport(CLI::App& app, ExportOptions& options)
{
    CLI::App* command = app.add_subcommand(
        "export", "Write a Structure file as .obj, .ply or .vtk, or a Data Block file as .csv, for other programs");
    command->add_option("FILE", options.file, "Structure file or Data Block file")->required();
    command->add_option("OUT", options.outputFile, "File to make; its ending tells the format")->required();
    command->add_flag("--force", options.replaceExisting, "Replace an existing file");
    command->add_flag("--no-labels", options.withoutPointLabels,
                      "Leave out the labels of points, which some readers of .vtk files cannot take");
    return command;
}

// What the command line says in words that the options do not know.
struct ImportWords {
    std::string delimiter;
    std::string missing;
    bool header = false;
    bool noHeader = false;
    bool complexColumns = false;
    bool realColumns = false;
};

CLI::App* AddImport(CLI::App& app, ImportOptions& options, ImportWords& words)
{
    CLI::App* command = app.add_subcommand("import", "Make a Data Block file of the columns of a CSV file");
    command->add_option("CSV", options.csvFile, "Table: X values or date and time first, then a column a trace")
        ->required();
    command->add_option("FILE", options.outputFile, "Data Block file to make")->required();
    command->add_flag("--force", options.replaceExisting, "Replace an existing file");

    const auto texts = [command](const char* name, std::vector<std::string>& values, const char* help) {
        command->add_option(name, values, help)->type_name("TEXT")->allow_extra_args(false);
    };
    texts("--type", options.types, "Measurement type by name, as FRF; once for all traces or once for each");
    texts("--dof", options.dofs, "Degrees of freedom, as 1Z:3Z; once for all traces or once for each");
    command->add_option("--label", options.label, "Label of the Data Block; default: the CSV file's name");
    command->add_option("--notes", options.notes, "Notes of the Data Block");
    command->add_option("--x-units", options.xaxisUnits, "Units of the X axis; default: those in the header row");
    command->add_flag("--explicit-x", options.keepXValues, "Keep every X value, also where spacing is even");

    auto* complexFlag = command->add_flag("--complex", words.complexColumns,
                                          "Every two columns are the real and imaginary part of one trace");
    command->add_flag("--real", words.realColumns, "Every column is a trace, whatever its heading")
        ->excludes(complexFlag);
    command->add_option("--delimiter", words.delimiter, "What separates cells; default: found out among , ; tab");
    command->add_flag("--decimal-comma", options.csv.decimalComma, "Numbers have a decimal comma");
    auto* headerFlag = command->add_flag("--header", words.header, "The first row is a header row");
    command->add_flag("--no-header", words.noHeader, "The first row holds values already")->excludes(headerFlag);
    command->add_option("--missing", words.missing, "Value for empty cells, as 0 or nan; default: they are refused")
        ->type_name("NUMBER");
    return command;
}

ExitCode Import(ImportOptions& options, const ImportWords& words, Output& output)
{
    if (!words.delimiter.empty()) options.csv.delimiter = DelimiterNamed(words.delimiter);
    if (options.csv.decimalComma && options.csv.delimiter == ',') {
        throw UsageError("a comma cannot be both the delimiter and the decimal point");
    }
    if (!words.missing.empty()) options.csv.missing = MissingNamed(words.missing);
    if (words.header || words.noHeader) options.csv.header = words.header;
    if (words.complexColumns) options.complexColumns = ComplexColumns::All;
    if (words.realColumns) options.complexColumns = ComplexColumns::None;
    return RunImport(options, output);
}

ExitCode Run(int argc, char** argv, Output& output)
{
    CLI::App app("Shows and exports Data Blocks, Structures and Shape Tables, and makes Data Blocks of CSV files.",
                 "qor");
    InfoOptions infoOptions;
    DumpOptions dumpOptions;
    ExportOptions exportOptions;
    ImportOptions importOptions;
    ImportWords importWords;
    const CLI::App* const info = AddInfo(app, infoOptions);
    const CLI::App* const dump = AddDump(app, dumpOptions);
    const CLI::App* const exported = AddExport(app, exportOptions);
    const CLI::App* const import = AddImport(app, importOptions, importWords);
    app.require_subcommand(0, 1);
    for (CLI::App* each : {&app, app.get_subcommand("info"), app.get_subcommand("dump"), app.get_subcommand("export"),
                           app.get_subcommand("import")}) {
        each->set_version_flag("--version", "qor " QOR_FILE_VERSION, "Show the version");
        each->set_help_flag("-h,--help", "Show this help");
        each->footer(ExitCodes);
    }
    app.get_subcommand("import")->footer("Measurement types: " + MeasurementTypeNames() + ".\n" + ExitCodes);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        output.Write(app.help());
        return Done;
    } catch (const CLI::CallForVersion& version) {
        output.Print("{}\n", version.what());
        return Done;
    } catch (const CLI::ParseError& error) {
        throw UsageError(fmt::format("{} (qor --help explains)", error.what()));
    }
    if (info->parsed()) return RunInfo(infoOptions, output);
    if (dump->parsed()) return RunDump(dumpOptions, output);
    if (exported->parsed()) return RunExport(exportOptions, output);
    if (import->parsed()) return Import(importOptions, importWords, output);
    output.Write(app.help());
    return Done;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        PrepareProcess();
        Output output(stdout);
        const ExitCode code = Run(argc, argv, output);
        output.Flush();
        return code;
    } catch (const ReaderGone&) {
        return Done;
    } catch (const ToolError& error) {
        PrintMessage(error.what());
        return error.Code();
    } catch (const std::bad_alloc&) {
        PrintMessage("not enough memory");
        return FileFailed;
    } catch (const std::exception& error) {
        PrintMessage(error.what());
        return FileFailed;
    }
}
