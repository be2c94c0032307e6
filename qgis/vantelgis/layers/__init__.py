"""Makes of any layer the plain table of lines or points that the converter takes."""
