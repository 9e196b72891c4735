// Every switch word that cvcli reads. Handlers look switches up and help prints
// them through these constants, so the two can never disagree.
// Switch words are case-sensitive: sw::s and sw::S are different switches.
#pragma once

namespace sw {
constexpr const wchar_t *m = L"-m";
constexpr const wchar_t *d = L"-d";
constexpr const wchar_t *s = L"-s";
constexpr const wchar_t *S = L"-S";
constexpr const wchar_t *D = L"-D";
constexpr const wchar_t *G = L"-G";
constexpr const wchar_t *DS = L"-DS";
constexpr const wchar_t *a = L"-a";
constexpr const wchar_t *g = L"-g";
constexpr const wchar_t *force = L"-force";
constexpr const wchar_t *o = L"-o";
constexpr const wchar_t *n = L"-n";
constexpr const wchar_t *k = L"-k";
constexpr const wchar_t *r = L"-r";
constexpr const wchar_t *l = L"-l";
constexpr const wchar_t *p = L"-p";
constexpr const wchar_t *nosr = L"-nosr";
constexpr const wchar_t *e = L"-e";
constexpr const wchar_t *I = L"-I";
constexpr const wchar_t *c = L"-c";
constexpr const wchar_t *dtype = L"-dtype";
constexpr const wchar_t *smdest = L"-smdest";
constexpr const wchar_t *f = L"-f";
constexpr const wchar_t *z = L"-z";
constexpr const wchar_t *x = L"-x";
constexpr const wchar_t *ID = L"-ID";
constexpr const wchar_t *i = L"-i";
constexpr const wchar_t *t = L"-t";
constexpr const wchar_t *np = L"-np";
constexpr const wchar_t *volume = L"-volume";
constexpr const wchar_t *h = L"-h";
constexpr const wchar_t *hp = L"-hp";
constexpr const wchar_t *u = L"-u";
constexpr const wchar_t *IP = L"-IP";
constexpr const wchar_t *mp = L"-mp";
constexpr const wchar_t *vn = L"-vn";
constexpr const wchar_t *create_folder = L"-create_folder";
constexpr const wchar_t *mi = L"-mi";
constexpr const wchar_t *rap = L"-rap";
constexpr const wchar_t *roc = L"-roc";
constexpr const wchar_t *ccs = L"-ccs";
constexpr const wchar_t *s1 = L"-s1";
constexpr const wchar_t *s2 = L"-s2";
constexpr const wchar_t *rs = L"-rs";
constexpr const wchar_t *sdf = L"-sdf";
constexpr const wchar_t *sdv = L"-sdv";
constexpr const wchar_t *int_ = L"-int";
constexpr const wchar_t *trydrive = L"-trydrive";
constexpr const wchar_t *detail = L"-detail";
constexpr const wchar_t *old = L"-old";
constexpr const wchar_t *break_ = L"-break";
constexpr const wchar_t *debug = L"-debug";
constexpr const wchar_t *wait = L"-wait";
constexpr const wchar_t *local = L"-local";
constexpr const wchar_t *event_id = L"-event_id";
constexpr const wchar_t *source = L"-source";
constexpr const wchar_t *app_version = L"-app_version";
constexpr const wchar_t *category = L"-category";
constexpr const wchar_t *description = L"-description";
constexpr const wchar_t *logging_level = L"-logging_level";
constexpr const wchar_t *hcal = L"-hcal";
constexpr const wchar_t *remote = L"-remote";
constexpr const wchar_t *ig = L"-ig";
constexpr const wchar_t *igNew = L"-igNew";
constexpr const wchar_t *IG = L"-IG";
constexpr const wchar_t *default_ = L"-default";
constexpr const wchar_t *type = L"-type";
constexpr const wchar_t *port = L"-port";
constexpr const wchar_t *user = L"-user";
constexpr const wchar_t *pwd = L"-pwd";
constexpr const wchar_t *enablehttps = L"-enablehttps";
constexpr const wchar_t *set = L"-set";
constexpr const wchar_t *qrm = L"-qrm";
constexpr const wchar_t *host = L"-host";
constexpr const wchar_t *dn = L"-dn";
constexpr const wchar_t *AP = L"-AP";
constexpr const wchar_t *md = L"-md";
constexpr const wchar_t *mdf = L"-mdf";
constexpr const wchar_t *an = L"-an";
constexpr const wchar_t *av = L"-av";
constexpr const wchar_t *as = L"-as";
constexpr const wchar_t *dd = L"-dd";
constexpr const wchar_t *bv = L"-bv";
constexpr const wchar_t *BV = L"-BV";
constexpr const wchar_t *maketime = L"-maketime";
constexpr const wchar_t *pn = L"-pn";
constexpr const wchar_t *job = L"-job";
constexpr const wchar_t *P = L"-P";
constexpr const wchar_t *rt = L"-rt";
constexpr const wchar_t *SAP = L"-SAP";
constexpr const wchar_t *DAP = L"-DAP";
constexpr const wchar_t *sap = L"-sap";
constexpr const wchar_t *dap = L"-dap";
constexpr const wchar_t *version = L"-version";
constexpr const wchar_t *desc = L"-desc";
constexpr const wchar_t *Standalone = L"-Standalone";
constexpr const wchar_t *newpath = L"-newpath";
constexpr const wchar_t *dm = L"-dm";
constexpr const wchar_t *hh = L"-hh";
constexpr const wchar_t *mm = L"-mm";
constexpr const wchar_t *pt = L"-pt";
constexpr const wchar_t *transfer = L"-transfer";
constexpr const wchar_t *propagate = L"-propagate";
constexpr const wchar_t *SL = L"-SL";
constexpr const wchar_t *nn = L"-nn";
constexpr const wchar_t *filename = L"-filename";
constexpr const wchar_t *aoe = L"-aoe";
constexpr const wchar_t *SVS = L"-SVS";
constexpr const wchar_t *R = L"-R";
constexpr const wchar_t *SV = L"-SV";
constexpr const wchar_t *threads = L"-threads";
constexpr const wchar_t *SLM = L"-SLM";
constexpr const wchar_t *trace = L"-trace";
constexpr const wchar_t *alternate = L"-alternate";

// All of the above, for consistency checks.
constexpr const wchar_t *kAll[] = {
    m,
    d,
    s,
    S,
    D,
    G,
    DS,
    a,
    g,
    force,
    o,
    n,
    k,
    r,
    l,
    p,
    nosr,
    e,
    I,
    c,
    dtype,
    smdest,
    f,
    z,
    x,
    ID,
    i,
    t,
    np,
    volume,
    h,
    hp,
    u,
    IP,
    mp,
    vn,
    create_folder,
    mi,
    rap,
    roc,
    ccs,
    s1,
    s2,
    rs,
    sdf,
    sdv,
    int_,
    trydrive,
    detail,
    old,
    break_,
    debug,
    wait,
    local,
    event_id,
    source,
    app_version,
    category,
    description,
    logging_level,
    hcal,
    remote,
    ig,
    igNew,
    IG,
    default_,
    type,
    port,
    user,
    pwd,
    enablehttps,
    set,
    qrm,
    host,
    dn,
    AP,
    md,
    mdf,
    an,
    av,
    as,
    dd,
    bv,
    BV,
    maketime,
    pn,
    job,
    P,
    rt,
    SAP,
    DAP,
    sap,
    dap,
    version,
    desc,
    Standalone,
    newpath,
    dm,
    hh,
    mm,
    pt,
    transfer,
    propagate,
    SL,
    nn,
    filename,
    aoe,
    SVS,
    R,
    SV,
    threads,
    SLM,
    trace,
    alternate,
};
} // namespace sw
