"""The setting of the provider: another folder of programs than the one inside the plugin."""

from processing.core.ProcessingConfig import ProcessingConfig, Setting

GROUP = "vantelgis"
PROGRAMS = "VANTELGIS_PROGRAMS"


def register(icon):
    """Adds the setting to Settings > Options > Processing > Providers."""
    ProcessingConfig.settingIcons[GROUP] = icon
    ProcessingConfig.addSetting(Setting(
        GROUP, PROGRAMS, "Folder of vantelgis, vantelgis-batch and vantelgis-gpkg (empty: those of "
        "the plugin)", "", valuetype=Setting.FOLDER))
    ProcessingConfig.readSettings()


def unregister():
    """Takes the setting away again, as the plugin is switched off."""
    ProcessingConfig.removeSetting(PROGRAMS)


def program_folder():
    """The folder that the user named, or an empty text."""
    return ProcessingConfig.getSetting(PROGRAMS) or ""
