#include "Commands.h"
#include "NumberArgs.h"
#include "SoundFileCommands.h"
#include "gps/sound/DefaultAlertSounds.h"
#include "gps/sound/SoundSettings.h"
#include "gps/sound/SpeedSoundTable.h"
#include "gps/sound/VolumeRules.h"
#include "gps/sources/SourceSettings.h"
#include "settings/CRegistryKey.h"

#include <QFileInfo>

namespace {

const char* const kUsage =
    "tarvik-tool sound bands [--dir DIR]\n"
    "       tarvik-tool sound volume --speed KMH [--noise LEVEL] [--base PERCENT] [--mute] [--force]\n"
    "       tarvik-tool sound defaults\n"
    "       tarvik-tool sound record OUT.wav --seconds S\n"
    "       tarvik-tool sound wav-info FILE\n"
    "bands lists the speed sounds as CSV \"kmh,file\": the files <n>.wav (n = 0..399) in DIR, else in the\n"
    "folder of the setting \"SpeedWaves\", whatever \"PlaySpeedSound\" says.\n"
    "volume prints {\"applies\", \"percent\", \"wave\", \"label\"}: one volume update with the stored "
    "volume\n"
    "settings at KMH km/h; LEVEL (0..255) is the measured noise, used while \"DynaSound\" is non-zero; the\n"
    "base volume defaults to its start value; --mute switches the sound off; --force as the settings pages "
    "do.\n"
    "defaults writes the missing default alert files and lists them as CSV \"file,written\".\n"
    "record records S seconds from the default audio input into OUT.wav (16-bit mono).\n"
    "wav-info prints {\"rate\", \"channels\", \"bits\", \"seconds\"} of a PCM WAV file.";

int listBands(ToolContext& ctx, const ToolOptions& options) {
    CRegistryKey key;
    SpeedSoundTable table;
    const QString folder = options.value("--dir", readSetting(key, SoundSettings::kSpeedWaves));
    if (options.has("--dir") && !QFileInfo(ctx.root.hostPath(folder)).isDir())
        return ctx.inputError("no folder " + folder);
    table.scan(folder, ctx.root);
    ctx.printCsvRow({"kmh", "file"});
    for (int speed : table.speeds())
        ctx.printCsvRow({QString::number(speed), table.fileOf(speed)});
    return ToolContext::kOk;
}

int computeOneVolume(ToolContext& ctx, const ToolOptions& options) {
    if (!options.has("--speed")) return ctx.usageError("volume needs --speed", kUsage);
    CRegistryKey key;
    const VolumeSettings settings = VolumeSettings::read(key);
    const uint32_t stored = static_cast<uint32_t>(readSetting(key, SoundSettings::kWaveVolume));
    const QString base = QString::number(startBaseVolume(settings, stored));
    QString badText;
    const auto numbers = parseNumberArgs(
        {options.value("--speed"), options.value("--noise", "0"), options.value("--base", base)}, badText);
    if (!numbers) return ctx.inputError("not a number: " + badText);
    const VolumeInput input{float(numbers->at(0)), settings.m_nDynaSound != 0, int(numbers->at(1)),
                            int(numbers->at(2)), !options.has("--mute")};
    const VolumeChange change = computeVolume(settings, input, options.has("--force"));
    ctx.printJson({{"applies", change.m_bApplies ? "true" : "false"},
                   {"percent", QString::number(change.m_nPercent)},
                   {"wave", QString::number(change.m_nWaveVolume)},
                   {"label", ToolContext::jsonString(change.m_strLabel)}});
    return ToolContext::kOk;
}

int installDefaults(ToolContext& ctx) {
    const char* const files[] = {SoundSettings::kNoFixSoundWav.m_default,
                                 SoundSettings::kSignalSoundWav.m_default,
                                 SoundSettings::kNoDataSoundWav.m_default};
    QList<bool> existed;
    for (const char* file : files)
        existed << QFileInfo::exists(ctx.root.hostPath(file));
    if (!DefaultAlertSounds::install(ctx.root)) return ctx.inputError("cannot write the alert sounds");
    ctx.printCsvRow({"file", "written"});
    for (int i = 0; i < 3; ++i)
        ctx.printCsvRow({ctx.root.hostPath(files[i]), existed[i] ? "no" : "yes"});
    return ToolContext::kOk;
}

} // namespace

int runSoundCommand(ToolContext& ctx, QStringList args) {
    const ToolOptions options(args, {"--dir", "--speed", "--noise", "--base", "--seconds"},
                              {"--help", "--mute", "--force"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = options.positional().value(0);
    if (verb == QLatin1String("record") || verb == QLatin1String("wav-info")) {
        if (options.positional().size() != 2)
            return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 2), kUsage);
        if (verb == QLatin1String("wav-info")) return printWavInfo(ctx, options.positional().at(1));
        if (!options.has("--seconds")) return ctx.usageError("record needs --seconds", kUsage);
        return recordSound(ctx, options.positional().at(1), options.value("--seconds"));
    }
    if (options.positional().size() > 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1), kUsage);
    if (verb == QLatin1String("bands")) return listBands(ctx, options);
    if (verb == QLatin1String("volume")) return computeOneVolume(ctx, options);
    if (verb == QLatin1String("defaults")) return installDefaults(ctx);
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
