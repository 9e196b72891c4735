// Every switch word that cvcli reads. Handlers look switches up and help prints
// them through these constants, so the two can never disagree. Each word is
// written once, in the list below, which gives both the constant (sw::m) and
// sw::kAll. Switch words are case-sensitive: sw::s and sw::S are different
// switches.
#pragma once

// X(constant, word)
#define CV_SWITCH_WORDS(X)                                                                                                       \
    X(m, L"-m")                                                                                                                  \
    X(d, L"-d")                                                                                                                  \
    X(s, L"-s")                                                                                                                  \
    X(S, L"-S")                                                                                                                  \
    X(D, L"-D")                                                                                                                  \
    X(G, L"-G")                                                                                                                  \
    X(DS, L"-DS")                                                                                                                \
    X(a, L"-a")                                                                                                                  \
    X(g, L"-g")                                                                                                                  \
    X(force, L"-force")                                                                                                          \
    X(o, L"-o")                                                                                                                  \
    X(n, L"-n")                                                                                                                  \
    X(k, L"-k")                                                                                                                  \
    X(r, L"-r")                                                                                                                  \
    X(l, L"-l")                                                                                                                  \
    X(p, L"-p")                                                                                                                  \
    X(nosr, L"-nosr")                                                                                                            \
    X(e, L"-e")                                                                                                                  \
    X(I, L"-I")                                                                                                                  \
    X(c, L"-c")                                                                                                                  \
    X(dtype, L"-dtype")                                                                                                          \
    X(smdest, L"-smdest")                                                                                                        \
    X(f, L"-f")                                                                                                                  \
    X(z, L"-z")                                                                                                                  \
    X(x, L"-x")                                                                                                                  \
    X(ID, L"-ID")                                                                                                                \
    X(i, L"-i")                                                                                                                  \
    X(t, L"-t")                                                                                                                  \
    X(np, L"-np")                                                                                                                \
    X(volume, L"-volume")                                                                                                        \
    X(h, L"-h")                                                                                                                  \
    X(hp, L"-hp")                                                                                                                \
    X(u, L"-u")                                                                                                                  \
    X(IP, L"-IP")                                                                                                                \
    X(mp, L"-mp")                                                                                                                \
    X(vn, L"-vn")                                                                                                                \
    X(create_folder, L"-create_folder")                                                                                          \
    X(mi, L"-mi")                                                                                                                \
    X(rap, L"-rap")                                                                                                              \
    X(roc, L"-roc")                                                                                                              \
    X(ccs, L"-ccs")                                                                                                              \
    X(s1, L"-s1")                                                                                                                \
    X(s2, L"-s2")                                                                                                                \
    X(rs, L"-rs")                                                                                                                \
    X(sdf, L"-sdf")                                                                                                              \
    X(sdv, L"-sdv")                                                                                                              \
    X(int_, L"-int")                                                                                                             \
    X(trydrive, L"-trydrive")                                                                                                    \
    X(detail, L"-detail")                                                                                                        \
    X(old, L"-old")                                                                                                              \
    X(break_, L"-break")                                                                                                         \
    X(debug, L"-debug")                                                                                                          \
    X(wait, L"-wait")                                                                                                            \
    X(local, L"-local")                                                                                                          \
    X(event_id, L"-event_id")                                                                                                    \
    X(source, L"-source")                                                                                                        \
    X(app_version, L"-app_version")                                                                                              \
    X(category, L"-category")                                                                                                    \
    X(description, L"-description")                                                                                              \
    X(logging_level, L"-logging_level")                                                                                          \
    X(hcal, L"-hcal")                                                                                                            \
    X(remote, L"-remote")                                                                                                        \
    X(ig, L"-ig")                                                                                                                \
    X(igNew, L"-igNew")                                                                                                          \
    X(IG, L"-IG")                                                                                                                \
    X(default_, L"-default")                                                                                                     \
    X(type, L"-type")                                                                                                            \
    X(port, L"-port")                                                                                                            \
    X(user, L"-user")                                                                                                            \
    X(pwd, L"-pwd")                                                                                                              \
    X(enablehttps, L"-enablehttps")                                                                                              \
    X(set, L"-set")                                                                                                              \
    X(qrm, L"-qrm")                                                                                                              \
    X(host, L"-host")                                                                                                            \
    X(dn, L"-dn")                                                                                                                \
    X(AP, L"-AP")                                                                                                                \
    X(md, L"-md")                                                                                                                \
    X(mdf, L"-mdf")                                                                                                              \
    X(an, L"-an")                                                                                                                \
    X(av, L"-av")                                                                                                                \
    X(as, L"-as")                                                                                                                \
    X(dd, L"-dd")                                                                                                                \
    X(bv, L"-bv")                                                                                                                \
    X(BV, L"-BV")                                                                                                                \
    X(maketime, L"-maketime")                                                                                                    \
    X(pn, L"-pn")                                                                                                                \
    X(job, L"-job")                                                                                                              \
    X(P, L"-P")                                                                                                                  \
    X(rt, L"-rt")                                                                                                                \
    X(SAP, L"-SAP")                                                                                                              \
    X(DAP, L"-DAP")                                                                                                              \
    X(sap, L"-sap")                                                                                                              \
    X(dap, L"-dap")                                                                                                              \
    X(version, L"-version")                                                                                                      \
    X(desc, L"-desc")                                                                                                            \
    X(Standalone, L"-Standalone")                                                                                                \
    X(newpath, L"-newpath")                                                                                                      \
    X(dm, L"-dm")                                                                                                                \
    X(hh, L"-hh")                                                                                                                \
    X(mm, L"-mm")                                                                                                                \
    X(pt, L"-pt")                                                                                                                \
    X(transfer, L"-transfer")                                                                                                    \
    X(propagate, L"-propagate")                                                                                                  \
    X(SL, L"-SL")                                                                                                                \
    X(nn, L"-nn")                                                                                                                \
    X(filename, L"-filename")                                                                                                    \
    X(aoe, L"-aoe")                                                                                                              \
    X(SVS, L"-SVS")                                                                                                              \
    X(R, L"-R")                                                                                                                  \
    X(SV, L"-SV")                                                                                                                \
    X(threads, L"-threads")                                                                                                      \
    X(SLM, L"-SLM")                                                                                                              \
    X(trace, L"-trace")                                                                                                          \
    X(alternate, L"-alternate")

namespace sw {
#define CV_SWITCH_CONSTANT(constant, word) constexpr const wchar_t *constant = word;
CV_SWITCH_WORDS(CV_SWITCH_CONSTANT)
#undef CV_SWITCH_CONSTANT

// All of the above, for consistency checks.
#define CV_SWITCH_ENTRY(constant, word) word,
constexpr const wchar_t *kAll[] = {CV_SWITCH_WORDS(CV_SWITCH_ENTRY)};
#undef CV_SWITCH_ENTRY
} // namespace sw
