/* The versions of what this project delivers; also read by the resource compiler. */
#pragma once

/* ORVELL.DLL */
#define ORVELL_MODULE_VERSION 1, 0, 0, 0
/* ORVELLRES.DLL: the module takes a language library from 2.1.5.0 on. */
#define ORVELL_LANGUAGE_VERSION 2, 1, 5, 0

/* A version as text: "1.0.0.0" */
#define ORVELL_VERSION_TEXT(version) ORVELL_JOIN_VERSION(version)
#define ORVELL_JOIN_VERSION(major, minor, revision, build) \
#major "." #minor "." #revision "." #build

/* A version as GetDLLVersion reports it: 2.1.5.0 is 2.0105. */
#define ORVELL_VERSION_NUMBER(version) ORVELL_COMPUTE_VERSION(version)
#define ORVELL_COMPUTE_VERSION(major, minor, revision, build) \
    ((((build)*0.01 + (revision)) * 0.01 + (minor)) * 0.01 + (major))
