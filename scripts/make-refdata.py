#!/usr/bin/env python3
"""Builds data/MUNCP.csv, data/CEP.csv and data/MUNCPPOCO.csv from the public municipality,
state and CEP-range lists (see README, "Reference data"), joined with the regional offices
of data/REGNL.csv by their numbers. Usage: scripts/make-refdata.py SOURCE_DIR  (writes into data/)."""
import csv, sys, os

src = sys.argv[1]
here = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', 'data')

def read(name):
    with open(os.path.join(src, name), encoding='utf-8') as f:
        return list(csv.DictReader(f))

def write(name, header, rows):
    with open(os.path.join(here, name), 'w', encoding='utf-8', newline='') as f:
        w = csv.writer(f, lineterminator='\n')
        w.writerow(header)
        w.writerows(rows)

municipalities = read('municipios_sp.csv')
states = read('estados.csv')
ceps = read('cep_sp.csv')

# Each river-basin management unit (UGRHI) is served by the office of its main city; a
# municipality that has an office of its own goes to it.
office_of_ugrhi = {1: 18, 2: 7, 3: 35, 4: 5, 5: 3, 6: 36, 7: 4, 8: 15, 9: 43, 10: 6, 11: 19,
                   12: 32, 13: 9, 14: 42, 15: 14, 16: 38, 17: 44, 18: 39, 19: 12, 20: 41,
                   21: 13, 22: 11}
office_city = {'CAMPINAS': 3, 'SANTOS': 4, 'RIBEIRÃO PRETO': 5, 'SOROCABA': 6,
               'SÃO JOSÉ DOS CAMPOS': 7, 'BAURU': 9, 'PIRACICABA': 10, 'PRESIDENTE PRUDENTE': 11,
               'ARAÇATUBA': 12, 'MARÍLIA': 13, 'SÃO JOSÉ DO RIO PRETO': 14, 'FRANCA': 15,
               'ARARAQUARA': 17, 'TAUBATÉ': 18, 'REGISTRO': 19, 'GUARULHOS': 21, 'OSASCO': 22,
               'SANTO ANDRÉ': 23, 'JUNDIAÍ': 24, 'LIMEIRA': 25, 'BOTUCATU': 26,
               'ITAPETININGA': 27, 'AVARÉ': 28, 'BARRETOS': 32, 'CUBATÃO': 34, 'UBATUBA': 35,
               'MOGI DAS CRUZES': 36, 'SÃO CARLOS': 37, 'LINS': 38, 'FERNANDÓPOLIS': 39,
               'CATANDUVA': 40, 'TUPÃ': 41, 'ITAPEVA': 42, 'SÃO JOÃO DA BOA VISTA': 43,
               'OURINHOS': 44, 'PRESIDENTE VENCESLAU': 46}

# Districts of the capital by the first three digits of the CEP.
def capital_office(prefix3):
    p = int(prefix3)
    if p < 20: return 45   # centre
    if p < 30: return 29   # north
    if p < 40: return 30   # east
    if p < 50: return 31   # south
    if p < 60: return 16   # west
    return 33              # far east

muncp_rows = [[s['NMUNCP'], s['DMUNCP'], s['DRESMDMUNCP'], '', ''] for s in states]
office_of_muncp = {}
for m in municipalities:
    muncp_rows.append([m['NMUNCP'], m['DMUNCP'], m['DRESMDMUNCP'], m['UGRHI'], m['UGRHI']])
    office_of_muncp[m['NMUNCP']] = office_city.get(m['DMUNCP'], office_of_ugrhi[int(m['UGRHI'])])
write('MUNCP.csv', ['NMUNCP', 'DMUNCP', 'DRESMDMUNCP', 'NUGRHI', 'NBACIA'], muncp_rows)

seen = set()
cep_rows = []
for c in ceps:
    key = (c['NMUNCP'], c['CCEP'])
    if key in seen:
        continue
    seen.add(key)
    office = capital_office(c['CCEP'][:3]) if c['NMUNCP'] == '100' else office_of_muncp[c['NMUNCP']]
    cep_rows.append([c['NMUNCP'], c['CCEP'], office])
write('CEP.csv', ['NMUNCP', 'CCEP', 'NREGNL'], cep_rows)

# Municipalities where groundwater supply imposes class 3 on every station.
wells = {'RIBEIRÃO PRETO': 98, 'SÃO JOSÉ DO RIO PRETO': 64, 'BAURU': 41, 'ARARAQUARA': 27,
         'SÃO CARLOS': 22, 'MARÍLIA': 18, 'PRESIDENTE PRUDENTE': 15, 'LINS': 9, 'CATANDUVA': 12,
         'ARAÇATUBA': 11, 'BEBEDOURO': 8, 'SERTÃOZINHO': 10, 'CAMPINAS': 0, 'SANTOS': 0,
         'SOROCABA': 0}
by_name = {m['DMUNCP']: m['NMUNCP'] for m in municipalities}
write('MUNCPPOCO.csv', ['NMUNCP', 'NPOCO'],
      sorted(([by_name[n], w] for n, w in wells.items()), key=lambda r: int(r[0])))
