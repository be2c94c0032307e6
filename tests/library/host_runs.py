"""What host.c shows and leaves behind, by its argument."""

RULE = "_" * 80 + "\n"
OPENED = " Trying to open file levels.txt...OK. Opened File Unit:"
TYPED = "one\ntwo\nthree\n"  # at its standard input
CLOSE = "\nPress Enter to Close\n"
# What streams.cpp shows: what was printed first comes first.
STREAMS = f"before|{RULE}between|{RULE}behind|{RULE}end\n{CLOSE}{RULE}"
# What the host shows at each run, and the files that it leaves.
HOST_RUNS = {
    "print": (f"before|{RULE}between|{RULE}behind\n" " Trying to open file theirs...OK.  File Unit:  10\n",
              {"mine": "host", "theirs": "set\r\n"}),
    "stop": (f" Trying to open file theirs...OK.  File Unit:  10\nstop|{CLOSE}[end][atexit]",
             {"mine": "host", "theirs": "set\r\n"}),
    "jump": ("\nERROR 0201 - Reading text line from file unit number   77\n" + CLOSE
             + " Trying to open file x...OK.  File Unit:  21\n"
             "\nERROR 0201 - Reading text line from file unit number   21\n" + CLOSE
             + OPENED + "  21\n\nERROR - Writing file levels.txt\n" + CLOSE
             + "\nERROR - Writing file unit 21\n" + CLOSE
             + "\nInvalid number of polygons in region sent to inside_polygon routine [1] - contact "
             "support@vantelgis.example\n" + CLOSE
             + " Empty filename specified.  Bailing out.  Please contact support@vantelgis.example."
             + CLOSE
             + " Trying to open file nowhere/x... CHECK 0008 - \"nowhere/x\" cannot be found\n"
             " Check file exists and press enter or enter another file name: "
             "\nERROR - End of File encountered\n" + CLOSE
             + "\nERROR - Can't open file: nowhere/x\n" + CLOSE
             + "at end: 1\n" + OPENED + "  21\nat end: 0\n", {}),
    "units": (OPENED + "  10\n Trying to open file both... Trying to open file own...OK.  File Unit:****\n"
              "...Closed File Unit:  11\n Trying to open file both......Closed File Unit:  11\n"
              "10 0 1.5\n...Closed File Unit:****\n Trying to open file next...OK.  File Unit:  11\n"
              + OPENED + "  12\n12\n",
              {"both": "first\r\nsecond\r\n", "own": "of the host\r\n", "next": "in the table\r\n"}),
    "ask": ("host read one\n\nPress Enter to Continue\nhost read three\n\nPress Enter to Continue\n", {}),
}
