"""What the plugin adds to the main window and to the dialogs."""
