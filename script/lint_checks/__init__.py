"""The checks of script/lint, one a module, each with TITLE, MEND and check(project)."""
